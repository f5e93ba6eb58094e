// SPDX-License-Identifier: GPL-3.0-or-later
// UTF-8, character by character.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kevra {

struct Utf8Character {
    char32_t value = 0;
    std::size_t length = 0; ///< in bytes; 0: no well-formed character starts here
};

/// The character at the start of non-empty `bytes`. Overlong forms and surrogates are invalid.
[[nodiscard]] Utf8Character firstCharacter(std::string_view bytes);
void appendUtf8(std::string &out, char32_t character);
/// The number of leading ASCII bytes.
[[nodiscard]] std::size_t asciiRun(std::string_view bytes);
/// The longest prefix of at most `size` bytes that ends between two characters.
[[nodiscard]] std::string_view wholeCharacters(std::string_view text, std::size_t size);
/// The number of leading bytes that are well-formed UTF-8.
[[nodiscard]] std::size_t utf8Run(std::string_view bytes);

/// Whether the byte is part of a character but not its first.
[[nodiscard]] constexpr bool continuesCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

[[nodiscard]] inline bool isAscii(std::string_view bytes)
{
    return asciiRun(bytes) == bytes.size();
}
[[nodiscard]] inline bool isUtf8(std::string_view bytes)
{
    return utf8Run(bytes) == bytes.size();
}

} // namespace kevra
