// SPDX-License-Identifier: GPL-3.0-or-later
// Colours as HTML writes them, and back.
#pragma once

#include "text/types.h"

#include <optional>
#include <string>
#include <string_view>

namespace kevra {

/// "#" and six capital hexadecimal digits, red first. A value of more than 24 bits gives a longer code, its
/// outer pairs exchanged all the same.
[[nodiscard]] std::string ColourToHtml(Colour colour);

inline constexpr std::size_t hexDigits = 6;

/// The colour of six hexadecimal digits, red first, without "#"; nothing for any other text.
[[nodiscard]] std::optional<Colour> colourOfHex(std::string_view digits);

} // namespace kevra
