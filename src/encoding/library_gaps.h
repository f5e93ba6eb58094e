// SPDX-License-Identifier: GPL-3.0-or-later
// The few characters for which the library's tables are not those of the WHATWG Encoding Standard.
#pragma once

#include "encoding/character_sets.h"

#include <string>
#include <string_view>

namespace kevra {

/// A character that the library does not know in a set.
struct UnknownCharacter {
    Encoding encoding;
    std::string_view bytes;
    char32_t character;
};

/// The one that `bytes` start with; null for none.
[[nodiscard]] const UnknownCharacter *unknownCharacterAt(Encoding encoding, std::string_view bytes);

/// The one that `text`, in which `form` says how each is written, starts with; null for none.
[[nodiscard]] const UnknownCharacter *unknownCharacterFor(
    Encoding encoding, std::string_view text, std::string (*form)(const UnknownCharacter &));

/// `text` with the characters the library gives for the set, with those of the standard, and back.
[[nodiscard]] std::string withStandardCharacters(std::string text, Encoding encoding);
[[nodiscard]] std::string withLibraryCharacters(std::string text, Encoding encoding);

} // namespace kevra
