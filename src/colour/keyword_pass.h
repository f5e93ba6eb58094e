// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of a script: keywords in the code colour, "<<" ... ">>" placeholders in orange, "'--" comments
// in green, string literals black. Later runs cover earlier ones.
#pragma once

#include "text/types.h"

#include <string_view>

namespace kevra {

/// The runs of a whole script, over black.
[[nodiscard]] ColourRuns scriptRuns(std::string_view text, Colour code);

/// The runs of one region, string literals included, to be painted over its present colours. They may extend
/// beyond the region: a comment to the end of its line, a placeholder to its closing mark.
/// `failed`: the closing mark of a placeholder was missing or came first, which ended the pass.
struct RegionRuns {
    ColourRuns runs;
    bool failed = false;
};
[[nodiscard]] RegionRuns regionRuns(std::string_view text, TextRange region, Colour code);

} // namespace kevra
