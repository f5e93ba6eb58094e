// SPDX-License-Identifier: GPL-3.0-or-later
// Sets in which every byte is a character.
#pragma once

#include "encoding/character_sets.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace kevra {

/// The characters of the bytes 0x80 to 0xFF; 0 marks a byte without one.
using HighHalf = std::array<char16_t, 128>;

/// Made from the library when a set is first asked for. All zero where the system does not know the set.
[[nodiscard]] const HighHalf &highHalf(Encoding encoding);

/// Appends the characters of `bytes`, as far as each byte has one, and returns how many that were.
[[nodiscard]] std::size_t appendSingleBytes(std::string_view bytes, const HighHalf &half, std::string &out);
/// Nothing when a character is not in the set.
[[nodiscard]] std::optional<std::string> toSingleBytes(std::string_view text, const HighHalf &half);

} // namespace kevra
