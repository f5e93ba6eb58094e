// SPDX-License-Identifier: GPL-3.0-or-later
// The tags of a page: each stretch from a "<" to the next ">", whatever stands between them.
#pragma once

#include "text/types.h"

#include <string_view>

namespace kevra {

/// One run in `colour` for every tag of the whole text, in order. An unclosed "<" ends the list.
[[nodiscard]] ColourRuns tagRuns(std::string_view text, Colour colour);
/// The same for a part of a text that starts outside every tag, each run from its tag's own "<".
[[nodiscard]] ColourRuns plainTagRuns(std::string_view part, Colour colour);

/// Where the run of a tag from `lt` to `gt` begins: at its "<", except that a tag longer than the text before
/// it is looked through for a further "<", and the offset found inside the tag is taken for one in the text.
[[nodiscard]] Offset tagRunStart(std::string_view text, Offset lt, Offset gt);

/// Whether the text before a tag is so short that the tag may be looked through for a further "<".
[[nodiscard]] bool tagIsLongForItsPlace(Offset lt, Offset gt);

} // namespace kevra
