// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/recovery_record.h"

#include "storage/checksummed_record.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace kevra {
namespace {

constexpr char undeclared = '-';
constexpr char guessedLetter = '1';
constexpr char namedLetter = '2';
constexpr std::size_t formerFormatLength = 4;
constexpr std::size_t labelsStart = 5;
constexpr std::array formerEncodings{Encoding::Windows1252, Encoding::Windows1252, Encoding::Iso8859_15,
    Encoding::Utf8, Encoding::Utf16Le, Encoding::Utf16Be};

/// One character each for the mark, line ends, source of the encoding and raw bytes; then the labels of the
/// encoding and of the declared one.
std::string formatText(const TextFormat &format)
{
    const auto letter = [](auto value) { return static_cast<char>('0' + static_cast<int>(value)); };
    std::string text{
        letter(format.mark), letter(format.lineEnds), letter(format.guessed), letter(format.rawBytes), ' '};
    text.append(labelOf(format.encoding)) += ' ';
    return format.declared ? text.append(labelOf(*format.declared)) : text + undeclared;
}

std::optional<LineEnds> lineEndsFrom(char letter)
{
    if (letter < '0' || letter > '0' + static_cast<int>(LineEnds::Mixed))
        return std::nullopt;
    return static_cast<LineEnds>(letter - '0');
}

/// The format of version 2.85 and earlier, one character each: encoding, mark, line ends, declared encoding.
std::optional<TextFormat> readFormerFormat(std::string_view text)
{
    const auto encoding = [](char letter) -> std::optional<Encoding> {
        const auto index = static_cast<std::size_t>(letter - '0');
        return index < formerEncodings.size() ? std::optional(formerEncodings[index]) : std::nullopt;
    };
    const auto ends = lineEndsFrom(text[2]);
    if (!encoding(text[0]) || !ends)
        return std::nullopt;
    return TextFormat{.encoding = *encoding(text[0]),
        .mark = text[1] == '1',
        .lineEnds = *ends,
        .declared = encoding(text[3]),
        .guessed = false,
        .named = false,
        .rawBytes = false};
}

std::optional<TextFormat> readFormat(std::string_view text)
{
    if (text.size() == formerFormatLength)
        return readFormerFormat(text);
    if (text.size() < labelsStart)
        return std::nullopt;
    const auto labels = text.substr(labelsStart);
    const auto blank = std::min(labels.find(' '), labels.size());
    const auto encoding = encodingNamed(labels.substr(0, blank));
    const auto ends = lineEndsFrom(text[1]);
    if (!encoding || !ends)
        return std::nullopt;
    return TextFormat{.encoding = *encoding,
        .mark = text[0] == '1',
        .lineEnds = *ends,
        .declared = encodingNamed(labels.substr(blank)),
        .guessed = text[2] == guessedLetter,
        .named = text[2] == namedLetter,
        .rawBytes = text[3] == '1'};
}

} // namespace

std::string fileBytes(const TextSnapshot &snapshot)
{
    return encodeFile(snapshot.text, snapshot.file).bytes;
}

std::string recordBytes(const TextSnapshot &snapshot, std::uint64_t sequence)
{
    const auto encoded = encodeFile(snapshot.text, snapshot.file);
    return withChecksum({snapshot.path, formatText(encoded.format), encoded.bytes, std::to_string(sequence)});
}

std::optional<RecoveryRecord> readRecord(std::string_view bytes)
{
    auto fields = readChecksummed(bytes);
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
