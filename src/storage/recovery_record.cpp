// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/recovery_record.h"

#include "storage/checksummed_record.h"

#include <charconv>

namespace kevra {
namespace {

/// Encoding, mark, line ends and declared set, one character each.
std::string formatText(const TextFormat &format)
{
    const auto letter = [](auto value) { return static_cast<char>('0' + static_cast<int>(value)); };
    return {letter(format.encoding), letter(format.mark), letter(format.lineEnds),
        format.declared ? letter(*format.declared) : '-'};
}

template <typename Enum> bool take(char letter, Enum last, Enum &value)
{
    if (letter < '0' || letter > '0' + static_cast<int>(last))
        return false;
    value = static_cast<Enum>(letter - '0');
    return true;
}

std::optional<TextFormat> readFormat(std::string_view text)
{
    TextFormat format;
    if (text.size() != 4 || !take(text[0], Encoding::Utf16Be, format.encoding)
        || !take(text[2], LineEnds::Mixed, format.lineEnds))
        return std::nullopt;
    format.mark = text[1] == '1';
    if (Encoding declared{}; take(text[3], Encoding::Utf16Be, declared))
        format.declared = declared;
    return format;
}

} // namespace

std::string fileBytes(const TextSnapshot &snapshot)
{
    const auto &[format, original, kind] = snapshot.file;
    return encodeFile(snapshot.text, format, *original, kind).bytes;
}

std::string recordBytes(const TextSnapshot &snapshot, std::uint64_t sequence)
{
    const auto &[format, original, kind] = snapshot.file;
    const auto encoded = encodeFile(snapshot.text, format, *original, kind);
    return withChecksum({snapshot.path, formatText(encoded.format), encoded.bytes, std::to_string(sequence)});
}

std::optional<RecoveryRecord> readRecord(std::string_view bytes)
{
    auto fields = unsealed(bytes);
    if (!fields || fields->size() < 3 || fields->size() > 4)
        return std::nullopt;
    const auto format = readFormat((*fields)[1]);
    if (!format)
        return std::nullopt;
    std::uint64_t sequence = 0;
    if (fields->size() == 4)
        std::from_chars((*fields)[3].data(), (*fields)[3].data() + (*fields)[3].size(), sequence);
    return RecoveryRecord{std::move((*fields)[0]), std::move((*fields)[2]), *format, 0, sequence};
}

} // namespace kevra
