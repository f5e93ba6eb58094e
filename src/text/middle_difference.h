// SPDX-License-Identifier: GPL-3.0-or-later
// The differences between two texts without a library.
#pragma once

#include "text/differences.h"

namespace kevra {

/// Everything between the lines that both texts share at the start and at the end counts as replaced: one
/// hunk, or none.
[[nodiscard]] std::vector<Hunk> middleDifference(std::string_view before, std::string_view after);

} // namespace kevra
