// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/library_gaps.h"

#include "encoding/utf8.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace kevra {
namespace {

struct UnknownByte {
    Encoding encoding;
    unsigned char byte;
    char32_t character;
};

constexpr std::array unknownBytes{
    UnknownByte{Encoding::Windows1255, 0xCA, 0x05BA},
    UnknownByte{Encoding::Gbk, 0x80, 0x20AC},
    UnknownByte{Encoding::Gb18030, 0x80, 0x20AC},
    UnknownByte{Encoding::ShiftJis, 0x80, 0x80},
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
        const auto [first, length] = firstCharacter(rest);
        const char32_t value = first; // a copy: Clang captures no binding
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

char32_t characterOfUnknownByte(Encoding encoding, unsigned char byte)
{
    const auto row = std::ranges::find_if(
        unknownBytes, [&](const auto &r) { return r.encoding == encoding && r.byte == byte; });
    return row == unknownBytes.end() ? 0 : row->character;
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
