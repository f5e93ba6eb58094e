// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of a whole text, computed before it is shown.
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

/// The colours of a text of `length` bytes after `runs` are painted over black, in order. Parts outside the
/// text are ignored. At most 255 colours besides black.
[[nodiscard]] Paint paintOf(std::span<const ColourRun> runs, Offset length);

} // namespace kevra
