// SPDX-License-Identifier: GPL-3.0-or-later
// A finding of the analysis: where, what, why, and the edits that would fix it.
#pragma once

#include "script/rules.h"
#include "text/types.h"

#include <string>
#include <vector>

namespace kevra::script {

/// Replaces the bytes of `range` by `text`.
struct TextEdit {
    TextRange range;
    std::string text;

    friend bool operator==(const TextEdit &, const TextEdit &) = default;
};

/// One way to fix a finding. The edits do not overlap and are in ascending order.
struct Fix {
    std::string title; ///< imperative, without a full stop: "Remove the parentheses"
    std::vector<TextEdit> edits;

    friend bool operator==(const Fix &, const Fix &) = default;
};

/// Another place that a finding refers to, such as the line that opened a block.
struct Related {
    TextRange range;
    std::string what;

    friend bool operator==(const Related &, const Related &) = default;
};

struct Finding {
    Rule rule{};
    TextRange range;
    std::string what; ///< one sentence with the names and line numbers of this case
    std::vector<Related> related;
    std::vector<Fix> fixes;

    [[nodiscard]] Level level() const { return ruleInfo(rule).level; }
    friend bool operator==(const Finding &, const Finding &) = default;
};

} // namespace kevra::script
