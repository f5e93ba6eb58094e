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

/// Read from the library on first use. All zero if the system does not support the set. Thread-safe.
[[nodiscard]] const HighHalf &highHalf(Encoding encoding);

/// Appends the characters of the leading bytes that have one and returns the number of these bytes.
[[nodiscard]] std::size_t appendSingleBytes(std::string_view bytes, const HighHalf &half, std::string &out);
/// Nothing if a character is not in the set.
[[nodiscard]] std::optional<std::string> toSingleBytes(std::string_view text, const HighHalf &half);

} // namespace kevra
