// SPDX-License-Identifier: GPL-3.0-or-later
// The tags of a page: the text from each "<" to the next ">".
#pragma once

#include "text/types.h"

#include <string_view>

namespace kevra {

/// One run in `colour` for every tag of the whole text, in order. An unclosed "<" ends the list.
[[nodiscard]] ColourRuns tagRuns(std::string_view text, Colour colour);
/// The same for a part of a text that starts outside any tag; each run starts at the "<" of its tag.
[[nodiscard]] ColourRuns plainTagRuns(std::string_view part, Colour colour);

/// Where the run of a tag from `lt` to `gt` starts: at its "<", except that a tag longer than the text before
/// it is searched for another "<", whose offset inside the tag is used as an offset in the text.
[[nodiscard]] Offset tagRunStart(std::string_view text, Offset lt, Offset gt);

/// Whether the text before a tag may be short enough for that search.
[[nodiscard]] bool mayNeedInnerSearch(Offset lt, Offset gt);

} // namespace kevra
