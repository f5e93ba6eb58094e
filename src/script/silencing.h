// SPDX-License-Identifier: GPL-3.0-or-later
// Comments that switch findings off: 'kevra: off KV2003, KV2004 after a statement applies to its line, on a
// line of its own to the whole next statement. Without codes it applies to all findings.
#pragma once

#include "script/finding.h"
#include "script/parser.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace kevra::script {

struct Silence {
    TextRange range;
    std::vector<Rule> rules; ///< none: all
};

/// The rules that a comment, given without its marks, switches off; nothing for other comments.
[[nodiscard]] std::optional<std::vector<Rule>> rulesSwitchedOff(std::string_view comment);
/// Removes the findings that begin in one of the ranges.
void dropSilenced(std::span<const Silence> silences, std::vector<Finding> &findings);

/// `findings` are in ascending order of their start.
void dropSilenced(const ParsedScript &script, std::vector<Finding> &findings);

} // namespace kevra::script
