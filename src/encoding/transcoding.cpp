// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/transcoding.h"

#include "encoding/converter.h"
#include "encoding/iso2022_jp.h"
#include "encoding/library_gaps.h"
#include "encoding/single_byte.h"

#include <algorithm>
#include <functional>
#include <unordered_set>

namespace kevra {
namespace {

constexpr char32_t firstRaw = 0xF700;
constexpr char32_t lastRaw = 0xF7FF;
constexpr std::string_view utf8Name = "UTF-8";

/// Appends the characters of the leading valid bytes and returns the number of these bytes.
using Decoder = std::function<std::size_t(std::string_view bytes, std::string &out)>;

std::size_t appendUtf8Run(std::string_view bytes, std::string &out)
{
    const auto run = utf8Run(bytes);
    out.append(bytes.substr(0, run));
    return run;
}

/// The character as the library would decode it; standardForm() is applied later.
std::string libraryForm(const UnknownCharacter &known)
{
    std::string character;
    appendUtf8(character, known.character);
    return withLibraryCharacters(std::move(character), known.encoding);
}

Decoder libraryDecoder(const CharacterSet &set)
{
    const std::shared_ptr<Converter> library
        = Converter::between(std::string(set.libraryName), std::string(utf8Name));
    return [library, encoding = set.encoding](std::string_view bytes, std::string &out) -> std::size_t {
        if (bytes.empty())
            return 0;
        if (const auto *known = unknownCharacterAt(encoding, bytes)) {
            out += libraryForm(*known);
            return known->bytes.size();
        }
        return library ? library->convert(bytes, out) : 0;
    };
}

Decoder decoderOf(const CharacterSet &set)
{
    switch (set.form) {
    case Form::Utf8:
        return appendUtf8Run;
    case Form::SingleByte:
        return [&half = highHalf(set.encoding)](
                   std::string_view bytes, std::string &out) { return appendSingleBytes(bytes, half, out); };
    case Form::Shifting:
        return [decoder = std::make_shared<Iso2022JpDecoder>()](
                   std::string_view bytes, std::string &out) { return decoder->convert(bytes, out); };
    case Form::Wide:
    case Form::MultiByte:
        break;
    }
    return libraryDecoder(set);
}

/// Only GB18030 has four-byte characters; programs that read GBK do not know them.
bool hasFourByteCharacter(std::string_view gb)
{
    for (std::size_t i = 0; i + 1 < gb.size(); ++i) {
        if (static_cast<unsigned char>(gb[i]) < 0x80)
            continue;
        if (gb[i + 1] >= '0' && gb[i + 1] <= '9')
            return true;
        ++i;
    }
    return false;
}

std::optional<std::string> encodeWithLibrary(std::string_view text, const CharacterSet &set)
{
    const auto library = Converter::between(std::string(utf8Name), std::string(set.libraryName));
    const auto wanted = withLibraryCharacters(std::string(text), set.encoding);
    std::string bytes;
    for (std::string_view rest = wanted; library && !rest.empty();) {
        rest.remove_prefix(library->convert(rest, bytes));
        if (rest.empty())
            break;
        const auto *known = unknownCharacterFor(set.encoding, rest, libraryForm);
        if (!known)
            return std::nullopt;
        bytes += known->bytes;
        rest.remove_prefix(libraryForm(*known).size());
    }
    if (!library)
        return std::nullopt;
    if (set.encoding == Encoding::Gbk && hasFourByteCharacter(bytes))
        return std::nullopt;
    // The library drops some characters and replaces others with similar ones.
    auto back = toUtf8(bytes, set.encoding);
    return back.text == text && !back.rawBytes ? std::optional(std::move(bytes)) : std::nullopt;
}

std::optional<std::string> fromValidUtf8(std::string_view text, Encoding encoding)
{
    const auto &set = characterSet(encoding);
    switch (set.form) {
    case Form::Utf8:
        return isUtf8(text) ? std::optional(std::string(text)) : std::nullopt;
    case Form::SingleByte:
        return toSingleBytes(text, highHalf(encoding));
    case Form::Shifting:
        return toIso2022Jp(withLibraryCharacters(std::string(text), encoding));
    case Form::Wide:
    case Form::MultiByte:
        break;
    }
    return encodeWithLibrary(text, set);
}

bool isEscapedByte(char32_t character)
{
    return character >= firstRaw && character <= lastRaw;
}

/// The position of the first escaped byte; the size of the text if there is none.
std::size_t findRaw(std::string_view text)
{
    for (auto at = text.find('\xEF'); at != std::string_view::npos; at = text.find('\xEF', at + 1))
        if (isEscapedByte(firstCharacter(text.substr(at)).value))
            return at;
    return text.size();
}

void appendEscaped(std::string_view bytes, std::string &out)
{
    for (const char byte : bytes)
        appendUtf8(out, firstRaw + static_cast<unsigned char>(byte));
}

/// Escapes the bytes of characters that the file itself has in the range of escaped bytes; otherwise saving
/// would take them for raw bytes.
std::string withOwnCharactersEscaped(std::string_view text, Encoding encoding)
{
    std::string out;
    for (;;) {
        const auto at = findRaw(text);
        out.append(text.substr(0, at));
        if (at == text.size())
            return out;
        const auto length = firstCharacter(text.substr(at)).length;
        appendEscaped(fromValidUtf8(text.substr(at, length), encoding).value_or(std::string()), out);
        text.remove_prefix(at + length);
    }
}

/// Decoded text in the standard's characters; the tables of single-byte sets contain them already.
std::string standardForm(std::string text, Encoding encoding)
{
    if (characterSet(encoding).form == Form::SingleByte)
        return text;
    return withStandardCharacters(std::move(text), encoding);
}

/// Decodes `bytes`, of which some are invalid. `decoder` must not have been used yet.
std::string decodeEscaping(std::string_view bytes, Encoding encoding, const Decoder &decoder)
{
    std::string out;
    while (!bytes.empty()) {
        std::string valid;
        const auto length = decoder(bytes, valid);
        bytes.remove_prefix(length);
        out += withOwnCharactersEscaped(standardForm(std::move(valid), encoding), encoding);
        if (length > 0)
            continue;
        const auto raw = std::min<std::size_t>(bytes.size(), static_cast<std::size_t>(unitSize(encoding)));
        // Only one unit is skipped: the bytes after it may be valid.
        appendEscaped(bytes.substr(0, raw), out);
        bytes.remove_prefix(raw);
    }
    return out;
}

/// The decoded text; nothing if any byte is invalid.
std::optional<std::string> decodeValid(std::string_view bytes, Encoding encoding)
{
    const auto decoder = decoderOf(characterSet(encoding));
    std::string text;
    while (!bytes.empty()) {
        const auto length = decoder(bytes, text);
        if (length == 0)
            return std::nullopt;
        bytes.remove_prefix(length);
    }
    return standardForm(std::move(text), encoding);
}

} // namespace

std::string_view markOf(Encoding encoding)
{
    using namespace std::string_view_literals;
    switch (encoding) {
    case Encoding::Utf8:
        return "\xEF\xBB\xBF"sv;
    case Encoding::Utf16Le:
        return "\xFF\xFE"sv;
    case Encoding::Utf16Be:
        return "\xFE\xFF"sv;
    case Encoding::Utf32Le:
        return "\xFF\xFE\0\0"sv;
    case Encoding::Utf32Be:
        return "\0\0\xFE\xFF"sv;
    default:
        return {};
    }
}

bool isValid(std::string_view bytes, Encoding encoding)
{
    if (encoding == Encoding::Windows1252)
        return true;
    return encoding == Encoding::Utf8 ? isUtf8(bytes) : decodeValid(bytes, encoding).has_value();
}

ConvertedText toUtf8(std::string_view bytes, Encoding encoding)
{
    if (auto text = decodeValid(bytes, encoding))
        return {std::move(*text), false};
    return {decodeEscaping(bytes, encoding, decoderOf(characterSet(encoding))), true};
}

std::optional<std::string> fromUtf8(std::string_view text, Encoding encoding, RawBytes rawBytes)
{
    if (rawBytes == RawBytes::None)
        return fromValidUtf8(text, encoding);
    std::string out;
    for (;;) {
        const auto at = findRaw(text);
        const auto piece = fromValidUtf8(text.substr(0, at), encoding);
        if (!piece)
            return std::nullopt;
        out += *piece;
        if (at == text.size())
            return out;
        const auto [value, length] = firstCharacter(text.substr(at));
        out += static_cast<char>(value - firstRaw);
        text.remove_prefix(at + length);
    }
}

std::string_view firstMisfit(std::string_view text, Encoding encoding, RawBytes rawBytes)
{
    if (isUnicode(encoding) || isAscii(text) || fromUtf8(text, encoding, rawBytes))
        return {};
    std::unordered_set<char32_t> fitting;
    while (!text.empty()) {
        text.remove_prefix(asciiRun(text));
        if (text.empty())
            break;
        const auto [value, length] = firstCharacter(text);
        const auto character = text.substr(0, std::max<std::size_t>(length, 1));
        if (length == 0 || (fitting.insert(value).second && !fromUtf8(character, encoding, rawBytes)))
            return character;
        text.remove_prefix(length);
    }
    return {};
}

} // namespace kevra
