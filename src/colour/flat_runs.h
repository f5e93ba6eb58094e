// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/types.h"

#include <span>

namespace kevra {

/// The same colours as `runs` laid over black show, as stretches that neither overlap nor touch another of
/// their colour, without the black ones. At most 255 colours.
[[nodiscard]] ColourRuns flattened(std::span<const ColourRun> runs, Offset length);

} // namespace kevra
