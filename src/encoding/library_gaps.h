// SPDX-License-Identifier: GPL-3.0-or-later
// The few characters for which the library's tables are not those of the WHATWG Encoding Standard.
#pragma once

#include "encoding/character_sets.h"

#include <string>

namespace kevra {

/// The character of a single byte which the library does not know in this set; 0 for none.
[[nodiscard]] char32_t characterOfUnknownByte(Encoding encoding, unsigned char byte);

/// `text` with the characters the library gives for the set, with those of the standard, and back.
[[nodiscard]] std::string withStandardCharacters(std::string text, Encoding encoding);
[[nodiscard]] std::string withLibraryCharacters(std::string text, Encoding encoding);

} // namespace kevra
