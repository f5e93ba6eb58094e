// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of a script: keywords in the code colour, "<<" ... ">>" placeholders in orange, "'--" comments
// in green, string literals black. Later runs lie over earlier ones.
#pragma once

#include "text/types.h"

#include <string_view>

namespace kevra {

/// The runs of a whole script, over black.
[[nodiscard]] ColourRuns scriptRuns(std::string_view text, Colour code);

/// The runs of one region as it stands, literals included, over whatever colours it has. They may reach
/// outside the region: a comment to the end of its line, a placeholder to its closing mark.
/// `failed` says that a placeholder's closing mark was missing or came first, which ends the pass there.
struct RegionRuns {
    ColourRuns runs;
    bool failed = false;
};
[[nodiscard]] RegionRuns regionRuns(std::string_view text, TextRange region, Colour code);

} // namespace kevra
