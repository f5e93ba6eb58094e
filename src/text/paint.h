// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of a whole text, laid out before it is shown.
#pragma once

#include "text/types.h"

#include <span>
#include <string>
#include <vector>

namespace kevra {

struct Paint {
    std::vector<Colour> palette{colours::black};
    std::string indices; ///< into the palette, one for each byte of the text
};

/// What `runs`, laid over black in their order, look like on a text of `length` bytes; what reaches outside
/// is cut off. At most 255 colours beside black.
[[nodiscard]] Paint paintOf(std::span<const ColourRun> runs, Offset length);

} // namespace kevra
