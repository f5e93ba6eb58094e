// SPDX-License-Identifier: GPL-3.0-or-later
// Character sets as tables, for systems without a library that has them all. The tables are written while the
// program is built, from the library of the system it is built on: see cmake/windows/write_code_runs.cpp.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kevra {

/// Values that follow each other on both sides.
struct CodeRun {
    std::uint32_t from;
    std::uint32_t to;
    std::uint32_t count;
};

/// A set and UTF-8, both ways, each in ascending order of `from`. Bytes are numbers as bytesValue has them,
/// characters as pairValue.
struct CodeTable {
    std::string_view libraryName;
    std::span<const CodeRun> decoding;
    std::span<const CodeRun> encoding;
};

/// All sets of which an external library would be asked, but for UTF-16 and UTF-32.
[[nodiscard]] std::span<const CodeTable> codeTables();

constexpr std::size_t longestCode = 4; ///< bytes of a character in any of the sets

namespace code_runs {

constexpr std::uint32_t firstOfFour = 0x1000000;
constexpr std::uint32_t noNumber = 0xFFFFFFFF;
constexpr std::uint32_t largestCharacter = 0x10FFFF;

/// The bytes of one character as a number. Four bytes are GB18030's, whose second and fourth are digits: they
/// are counted without gaps; others have no number.
[[nodiscard]] constexpr std::uint32_t bytesValue(std::string_view bytes)
{
    const auto at = [&](std::size_t i) { return std::uint32_t{static_cast<unsigned char>(bytes[i])}; };
    if (bytes.size() == longestCode) {
        const auto first = at(0) - 0x81;
        const auto second = at(1) - 0x30;
        const auto third = at(2) - 0x81;
        const auto fourth = at(3) - 0x30;
        if (first >= 126 || second >= 10 || third >= 126 || fourth >= 10)
            return noNumber;
        return firstOfFour + ((first * 10 + second) * 126 + third) * 10 + fourth;
    }
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        value = value << 8 | at(i);
    return value;
}

[[nodiscard]] inline std::string bytesOf(std::uint32_t value)
{
    const auto byte = [](std::uint32_t number) { return static_cast<char>(number); };
    if (value >= firstOfFour) {
        const auto number = value - firstOfFour;
        return {byte(number / 12600 + 0x81), byte(number / 1260 % 10 + 0x30), byte(number / 10 % 126 + 0x81),
            byte(number % 10 + 0x30)};
    }
    std::string bytes;
    for (int shift = 16; shift >= 0; shift -= 8) {
        if (value >> shift != 0 || shift == 0)
            bytes += byte(value >> shift);
    }
    return bytes;
}

/// Some codes of Big5 stand for a letter and a mark.
[[nodiscard]] constexpr std::uint32_t pairValue(char32_t first, char32_t second)
{
    return static_cast<std::uint32_t>(first) << 16 | static_cast<std::uint32_t>(second);
}

[[nodiscard]] inline std::optional<std::uint32_t> mapped(std::span<const CodeRun> runs, std::uint32_t value)
{
    const auto after = std::ranges::upper_bound(runs, value, {}, &CodeRun::from);
    if (after == runs.begin() || value - (after - 1)->from >= (after - 1)->count)
        return std::nullopt;
    return (after - 1)->to + (value - (after - 1)->from);
}

} // namespace code_runs
} // namespace kevra
