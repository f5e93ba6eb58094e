// SPDX-License-Identifier: GPL-3.0-or-later
// Comments that switch findings off: 'kevra: off KV2003, KV2004 on a line for that line, on a line of its own
// for the statement that follows with everything in it. Without codes all findings are meant.
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

/// What a comment, taken without its marks, switches off; nothing where it says something else.
[[nodiscard]] std::optional<std::vector<Rule>> rulesSwitchedOff(std::string_view comment);
/// Findings that begin in one of the ranges go.
void dropSilenced(std::span<const Silence> silences, std::vector<Finding> &findings);

/// `findings` are in ascending order of their start.
void dropSilenced(const ParsedScript &script, std::vector<Finding> &findings);

} // namespace kevra::script
