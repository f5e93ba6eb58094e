// SPDX-License-Identifier: GPL-3.0-or-later
// Carrying out the fixes that findings propose.
#pragma once

#include "script/finding.h"

#include <span>
#include <string>
#include <string_view>

namespace kevra::script {

/// `text` with the edits, which are in ascending order and do not overlap.
[[nodiscard]] std::string edited(std::string_view text, std::span<const TextEdit> edits);

/// The edits of the first fix of each finding, in ascending order; a fix that overlaps one before it is left
/// out.
[[nodiscard]] std::vector<TextEdit> firstFixes(std::span<const Finding> findings);

} // namespace kevra::script
