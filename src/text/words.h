// SPDX-License-Identifier: GPL-3.0-or-later
// Word characters in UTF-8 text: letters of any alphabet, digits and the underscore.
#pragma once

#include "text/types.h"

#include <string_view>

namespace kevra {

[[nodiscard]] bool isWordCharacter(char32_t character);
/// The same for one byte; false for the bytes of characters beyond ASCII.
[[nodiscard]] constexpr bool isAsciiWord(char byte)
{
    const auto lower = static_cast<unsigned char>(byte | 0x20);
    return (lower >= 'a' && lower <= 'z') || (byte >= '0' && byte <= '9') || byte == '_';
}

/// True when the character that ends right before `position` belongs to a word.
[[nodiscard]] bool wordBefore(std::string_view text, Offset position);
/// True when the character that starts at `position` belongs to a word.
[[nodiscard]] bool wordAt(std::string_view text, Offset position);

/// The number of characters in `text`; a line break of two bytes counts two.
[[nodiscard]] Offset characterCount(std::string_view text);

/// The bytes of the character that starts at `position`, which is inside the text.
[[nodiscard]] Offset characterLength(std::string_view text, Offset position);
/// Where the character that ends right before `position` starts; 0 at the start of the text.
[[nodiscard]] Offset characterBefore(std::string_view text, Offset position);

/// `byte` with A to Z in lower case; every other byte unchanged.
[[nodiscard]] constexpr char lowerAscii(char byte)
{
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

/// Whether both are equal when the case of A to Z is ignored.
[[nodiscard]] constexpr bool equalIgnoringCase(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (lowerAscii(a[i]) != lowerAscii(b[i]))
            return false;
    return true;
}

[[nodiscard]] constexpr bool startsWithIgnoringCase(std::string_view text, std::string_view start)
{
    return equalIgnoringCase(text.substr(0, start.size()), start);
}

} // namespace kevra
