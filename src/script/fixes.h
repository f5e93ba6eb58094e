// SPDX-License-Identifier: GPL-3.0-or-later
// Carrying out the fixes that findings propose.
#pragma once

#include "script/finding.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace kevra::script {

/// `text` with the edits, which are in ascending order and do not overlap.
[[nodiscard]] std::string edited(std::string_view text, std::span<const TextEdit> edits);

/// The edits of the first fix of each finding, in ascending order; a fix that overlaps one before it is left
/// out.
[[nodiscard]] std::vector<TextEdit> firstFixes(std::span<const Finding> findings);

struct AppliedFix {
    Rule rule;
    Offset line; ///< from 1, in the text that the fix was made for
    std::string title;
};

struct FixedText {
    std::string text;
    std::vector<AppliedFix> applied;
    std::vector<Finding> left; ///< in the fixed text
};

/// Carries out the first fix of each finding of `analysis`, and of what it finds then, until no fix is left:
/// a bounded number of times. Fixes that would leave more errors than there were are not carried out.
[[nodiscard]] FixedText fixAll(
    std::string_view text, const std::function<std::vector<Finding>(std::string_view)> &analysis);

} // namespace kevra::script
