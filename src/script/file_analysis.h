// SPDX-License-Identifier: GPL-3.0-or-later
// The findings of a whole file: a script, or every script in a page or a file of the script host.
#pragma once

#include "script/finding.h"
#include "script/islands.h"

#include <string_view>
#include <vector>

namespace kevra::script {

/// Ascending by place; positions are those of the text.
[[nodiscard]] std::vector<Finding> analyseFile(std::string_view text, FileKind kind);

/// Both ascending by place, and so is the result.
void mergeFindings(std::vector<Finding> &findings, std::vector<Finding> more);

} // namespace kevra::script
