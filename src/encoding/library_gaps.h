// SPDX-License-Identifier: GPL-3.0-or-later
// The few characters for which the library's tables differ from the WHATWG Encoding Standard.
#pragma once

#include "encoding/character_sets.h"

#include <string>
#include <string_view>

namespace kevra {

/// A character that the library lacks in a set.
struct UnknownCharacter {
    Encoding encoding;
    std::string_view bytes;
    char32_t character;
};

/// The one that `bytes` start with; null for none.
[[nodiscard]] const UnknownCharacter *unknownCharacterAt(Encoding encoding, std::string_view bytes);

/// The one that `text` starts with, where `form` gives the UTF-8 of each; null for none.
[[nodiscard]] const UnknownCharacter *unknownCharacterFor(
    Encoding encoding, std::string_view text, std::string (*form)(const UnknownCharacter &));

/// Replaces the library's characters with those of the standard, and the reverse.
[[nodiscard]] std::string withStandardCharacters(std::string text, Encoding encoding);
[[nodiscard]] std::string withLibraryCharacters(std::string text, Encoding encoding);

} // namespace kevra
