// SPDX-License-Identifier: GPL-3.0-or-later
// What is asked of a library that recognises character sets by how often their bytes occur. A system without
// it answers nothing.
#pragma once

#include <string>
#include <string_view>

namespace kevra {

/// The name of the most likely set, one of the labels of character_sets.cpp or "UHC"; empty for none.
[[nodiscard]] std::string likelyCharset(std::string_view bytes);

} // namespace kevra
