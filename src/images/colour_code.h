// SPDX-License-Identifier: GPL-3.0-or-later
// Colours as HTML writes them, and back.
#pragma once

#include "text/types.h"

#include <optional>
#include <string>
#include <string_view>

namespace kevra {

/// "#" and six upper-case hexadecimal digits, red first. A value of more than 24 bits gives a longer code, in
/// which digits 1 and 2 are replaced by the last two, and digits 5 and 6 by the first two.
[[nodiscard]] std::string ColourToHtml(Colour colour);

inline constexpr std::size_t hexDigits = 6;

/// The colour of six hexadecimal digits, red first, without "#"; nothing for any other text.
[[nodiscard]] std::optional<Colour> colourOfHex(std::string_view digits);

} // namespace kevra
