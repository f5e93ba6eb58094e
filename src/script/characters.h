// SPDX-License-Identifier: GPL-3.0-or-later
// Which bytes make up the words of VBScript. Text is UTF-8; all letters outside ASCII count as parts of a
// name.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace kevra::script {

namespace byte_class {
inline constexpr std::uint8_t Name = 1, Digit = 2, HexDigit = 4, Blank = 8, LineBreak = 16;
} // namespace byte_class

inline constexpr auto byteClasses = [] {
    std::array<std::uint8_t, 256> classes{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        const auto lower = byte | 0x20;
        const bool digit = byte >= '0' && byte <= '9';
        if (digit || byte == '_' || (lower >= 'a' && lower <= 'z') || byte >= 0x80)
            classes[byte] |= byte_class::Name;
        if (digit)
            classes[byte] |= byte_class::Digit;
        if (digit || (lower >= 'a' && lower <= 'f'))
            classes[byte] |= byte_class::HexDigit;
        if (byte == ' ' || byte == '\t' || byte == '\v' || byte == '\f')
            classes[byte] |= byte_class::Blank;
        if (byte == '\r' || byte == '\n')
            classes[byte] |= byte_class::LineBreak;
    }
    return classes;
}();

[[nodiscard]] constexpr bool is(unsigned char byte, std::uint8_t kind)
{
    return (byteClasses[byte] & kind) != 0;
}

/// The length in bytes of the first character of `text` if it only looks like a VBScript character: a special
/// space, long dash or typographic quotation mark. Otherwise 0.
[[nodiscard]] constexpr unsigned lookalikeLength(std::string_view text)
{
    if (text.starts_with("\xC2\xA0"))
        return 2;
    if (text.starts_with("\xE2\x80") || text.starts_with("\xE3\x80\x80"))
        return text.size() < 3 ? static_cast<unsigned>(text.size()) : 3;
    return 0;
}

inline constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

} // namespace kevra::script
