// SPDX-License-Identifier: GPL-3.0-or-later
// Applies the fixes that findings propose.
#pragma once

#include "script/finding.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace kevra::script {

/// `text` with the edits applied; they are in ascending order and do not overlap.
[[nodiscard]] std::string edited(std::string_view text, std::span<const TextEdit> edits);

/// The edits of the first fix of each finding, in ascending order. A fix that overlaps an earlier one is left
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

/// Applies the first fix of each finding of `analysis` and analyses again, until no fix is left or a bound is
/// reached. Fixes that would leave more errors than before are not applied.
[[nodiscard]] FixedText fixAll(
    std::string_view text, const std::function<std::vector<Finding>(std::string_view)> &analysis);

} // namespace kevra::script
