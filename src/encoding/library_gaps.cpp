// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/library_gaps.h"

#include "encoding/converter.h"
#include "text/utf8.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace kevra {
namespace {

constexpr std::array unknownCharacters{
    UnknownCharacter{Encoding::Windows1255, "\xCA", 0x05BA},
    UnknownCharacter{Encoding::Gbk, "\x80", 0x20AC},
    UnknownCharacter{Encoding::Gb18030, "\x80", 0x20AC},
    UnknownCharacter{Encoding::ShiftJis, "\x80", 0x80},
    UnknownCharacter{Encoding::Big5, "\xA1\x5A", 0x2574},
    UnknownCharacter{Encoding::Big5, "\xA1\xC3", 0xFFE3},
    UnknownCharacter{Encoding::Big5, "\xA1\xC5", 0x02CD},
    UnknownCharacter{Encoding::Big5, "\xA1\xFE", 0xFF0F},
    UnknownCharacter{Encoding::Big5, "\xA2\x40", 0xFF3C},
    UnknownCharacter{Encoding::Big5, "\xA2\xCC", 0x5341},
    UnknownCharacter{Encoding::Big5, "\xA2\xCE", 0x5345},
    UnknownCharacter{Encoding::Big5, "\xA3\xE1", 0x20AC},
};

struct Replaced {
    Encoding encoding;
    char32_t library;
    char32_t standard;
};

constexpr std::array replaced{
    Replaced{Encoding::Koi8U, 0x255D, 0x045E},
    Replaced{Encoding::Koi8U, 0x256C, 0x040E},
    Replaced{Encoding::Macintosh, 0x0394, 0x2206},
    Replaced{Encoding::Macintosh, 0xE01E, 0xF8FF},
    Replaced{Encoding::MacCyrillic, 0x00A4, 0x20AC},
    Replaced{Encoding::Big5, 0x2022, 0x2027},
    Replaced{Encoding::Big5, 0xFF64, 0xFE51},
    Replaced{Encoding::Big5, 0x203E, 0x00AF},
    Replaced{Encoding::Big5, 0x223C, 0xFF5E},
    Replaced{Encoding::Big5, 0x2641, 0x2295},
    Replaced{Encoding::Big5, 0x2609, 0x2299},
    Replaced{Encoding::Big5, 0xFF0F, 0x2215},
    Replaced{Encoding::Big5, 0xFF3C, 0xFE68},
    Replaced{Encoding::Big5, 0x00A5, 0xFFE5},
    Replaced{Encoding::Big5, 0x00A2, 0xFFE0},
    Replaced{Encoding::Big5, 0x00A3, 0xFFE1},
};

/// `text` with each character beyond ASCII replaced by `replacement(character)`.
template <typename Replacement> std::string mapped(std::string_view text, const Replacement &replacement)
{
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const auto [value, length] = firstCharacter(text);
        if (length > 1)
            appendUtf8(out, replacement(value));
        else
            out.append(text.substr(0, 1));
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return out;
}

/// Replaces each character in column `from` of the rows of the set with the one in column `to`. A character
/// that is only in column `to` becomes the one in `from`, so that different characters stay different.
std::string exchanged(std::string text, Encoding encoding, char32_t Replaced::*from, char32_t Replaced::*to)
{
    if (std::ranges::find(replaced, encoding, &Replaced::encoding) == replaced.end() || isAscii(text))
        return text;
    const auto rowOf = [&](char32_t Replaced::*side, char32_t value) {
        return std::ranges::find_if(
            replaced, [&](const auto &row) { return row.encoding == encoding && row.*side == value; });
    };
    return mapped(text, [&](char32_t value) {
        if (const auto row = rowOf(from, value); row != replaced.end())
            return (*row).*to;
        const auto other = rowOf(to, value);
        return other == replaced.end() ? value : (*other).*from;
    });
}

/// Rows 89 to 92 of the Japanese set, which the library decodes to private use characters in EUC-JP.
constexpr char32_t firstPrivate = 0xE178;
constexpr std::size_t extraCharacters = 4 * 94;
constexpr char32_t notSign = 0xFFE2; ///< in these rows, but written at its other place in the set

/// The characters of these rows, from the library's Shift_JIS.
std::array<char16_t, extraCharacters> extraRows()
{
    constexpr std::size_t columns = 188;
    std::array<char16_t, extraCharacters> all{};
    const auto library = Converter::between("CP932", "UTF-8");
    for (std::size_t i = 0; library && i < all.size(); ++i) {
        const auto column = i % columns;
        const std::string bytes{static_cast<char>(0xED + i / columns),
            static_cast<char>(0x40 + column + (column >= 0x3F ? 1 : 0))}; // 0x7F is not used
        std::string character;
        if (library->convert(bytes, character) == bytes.size())
            all[i] = static_cast<char16_t>(firstCharacter(character).value);
    }
    return all;
}

const std::array<char16_t, extraCharacters> &extraJapanese()
{
    static const auto all = extraRows();
    return all;
}

constexpr bool hasExtraJapanese(Encoding encoding)
{
    return encoding == Encoding::EucJp || encoding == Encoding::Iso2022Jp;
}

char32_t fromPrivate(char32_t character)
{
    if (character < firstPrivate || character >= firstPrivate + extraCharacters)
        return character;
    const char32_t known = extraJapanese()[character - firstPrivate];
    return known == 0 ? character : known;
}

char32_t toPrivate(char32_t character)
{
    const auto &all = extraJapanese();
    const auto it = character == notSign ? all.end() : std::ranges::find(all, character);
    return it == all.end() ? character : firstPrivate + static_cast<char32_t>(it - all.begin());
}

} // namespace

const UnknownCharacter *unknownCharacterAt(Encoding encoding, std::string_view bytes)
{
    const auto row = std::ranges::find_if(unknownCharacters,
        [&](const auto &r) { return r.encoding == encoding && bytes.starts_with(r.bytes); });
    return row == unknownCharacters.end() ? nullptr : &*row;
}

const UnknownCharacter *unknownCharacterFor(
    Encoding encoding, std::string_view text, std::string (*form)(const UnknownCharacter &))
{
    const auto row = std::ranges::find_if(unknownCharacters,
        [&](const auto &r) { return r.encoding == encoding && text.starts_with(form(r)); });
    return row == unknownCharacters.end() ? nullptr : &*row;
}

std::string withStandardCharacters(std::string text, Encoding encoding)
{
    if (hasExtraJapanese(encoding))
        return mapped(text, fromPrivate);
    return exchanged(std::move(text), encoding, &Replaced::library, &Replaced::standard);
}

std::string withLibraryCharacters(std::string text, Encoding encoding)
{
    if (hasExtraJapanese(encoding))
        return mapped(text, toPrivate);
    return exchanged(std::move(text), encoding, &Replaced::standard, &Replaced::library);
}

} // namespace kevra
