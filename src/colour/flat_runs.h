// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/types.h"

#include <span>

namespace kevra {

/// The visible colours of `runs` painted over black, in runs that do not overlap and are as long as possible,
/// without black ones. At most 255 colours.
[[nodiscard]] ColourRuns flattened(std::span<const ColourRun> runs, Offset length);

} // namespace kevra
