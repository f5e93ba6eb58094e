// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/library_gaps.h"

#include "encoding/utf8.h"

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

/// Each character that `from` names in a row of the set becomes the one of `to`; one that `to` names, and
/// that the other side does not have, takes its place, so that nothing becomes the same.
std::string exchanged(std::string text, Encoding encoding, char32_t Replaced::*from, char32_t Replaced::*to)
{
    if (std::ranges::find(replaced, encoding, &Replaced::encoding) == replaced.end() || isAscii(text))
        return text;
    std::string out;
    out.reserve(text.size());
    for (std::string_view rest = text; !rest.empty();) {
        const auto [value, length] = firstCharacter(rest);
        const auto is = [&](char32_t Replaced::*side) {
            return std::ranges::find_if(
                replaced, [&](const auto &row) { return row.encoding == encoding && row.*side == value; });
        };
        if (const auto row = is(from); length > 1 && row != replaced.end())
            appendUtf8(out, (*row).*to);
        else if (const auto other = is(to); length > 1 && other != replaced.end())
            appendUtf8(out, (*other).*from);
        else
            out.append(rest.substr(0, std::max<std::size_t>(length, 1)));
        rest.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return out;
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
    return exchanged(std::move(text), encoding, &Replaced::library, &Replaced::standard);
}

std::string withLibraryCharacters(std::string text, Encoding encoding)
{
    return exchanged(std::move(text), encoding, &Replaced::standard, &Replaced::library);
}

} // namespace kevra
