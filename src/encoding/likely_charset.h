// SPDX-License-Identifier: GPL-3.0-or-later
// The port to a library that recognises character sets by the frequency of bytes. A system without one gives
// no answer.
#pragma once

#include <string>
#include <string_view>

namespace kevra {

/// The name of the most likely set, one of the labels of character_sets.cpp or "UHC"; empty for none.
[[nodiscard]] std::string likelyCharset(std::string_view bytes);

} // namespace kevra
