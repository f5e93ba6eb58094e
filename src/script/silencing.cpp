// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/silencing.h"

#include "script/sorted_names.h"

#include <algorithm>

namespace kevra::script {
namespace {

constexpr std::string_view blanks = " \t";

struct Silence {
    TextRange range;
    std::vector<Rule> rules; ///< none: all
};

/// What follows "kevra: off" in a comment; nothing where it says something else.
[[nodiscard]] std::optional<std::string_view> directive(std::string_view comment)
{
    comment.remove_prefix(comment.starts_with('\'') ? 1 : std::min<std::size_t>(comment.size(), 3));
    for (const std::string_view word : {"kevra:", "off"}) {
        const auto start = comment.find_first_not_of(blanks);
        if (start == std::string_view::npos)
            return std::nullopt;
        comment.remove_prefix(start);
        const auto written = comment.substr(0, word.size());
        if (comesBefore(written, word) || comesBefore(word, written))
            return std::nullopt;
        comment.remove_prefix(word.size());
    }
    if (!comment.empty() && blanks.find(comment.front()) == std::string_view::npos)
        return std::nullopt;
    return comment;
}

/// Codes first; a reason may follow.
[[nodiscard]] std::vector<Rule> rulesIn(std::string_view text)
{
    std::vector<Rule> rules;
    for (;;) {
        text.remove_prefix(std::min(text.find_first_not_of(" \t,"), text.size()));
        const auto word = text.substr(0, text.find_first_of(" \t,"));
        const auto rule = ruleOfCode(word);
        if (!rule)
            return rules;
        rules.push_back(*rule);
        text.remove_prefix(word.size());
    }
}

[[nodiscard]] Offset lineStartBefore(std::string_view text, Offset offset)
{
    const auto at = text.substr(0, static_cast<std::size_t>(offset)).find_last_of("\r\n");
    return at == std::string_view::npos ? 0 : static_cast<Offset>(at) + 1;
}

[[nodiscard]] bool isStatementList(NodeKind kind)
{
    return kind == NodeKind::Script || kind == NodeKind::Block;
}

/// The outermost statement that is the first to start at or after `offset`: with all of its blocks.
[[nodiscard]] TextRange statementAfter(const ParsedScript &script, Offset offset)
{
    TextRange found{offset, offset};
    auto id = script.tree.root();
    while (id != 0) {
        NodeId within = 0;
        for (const auto child : script.tree.children(id)) {
            const auto range = script.tree[child].range();
            if (isStatementList(script.tree[id].kind) && range.start >= offset)
                return range;
            if (range.end > offset) {
                within = child;
                break;
            }
        }
        id = within;
    }
    return found;
}

[[nodiscard]] TextRange silencedBy(const ParsedScript &script, TextRange comment)
{
    const auto lineStart = lineStartBefore(script.text, comment.start);
    const auto before = script.textOf({lineStart, comment.start});
    if (before.find_first_not_of(blanks) != std::string_view::npos)
        return {lineStart, comment.end};
    return {comment.start, statementAfter(script, comment.end).end};
}

} // namespace

void dropSilenced(const ParsedScript &script, std::vector<Finding> &findings)
{
    if (findings.empty())
        return;
    std::vector<Silence> silences;
    for (const auto comment : script.comments) {
        if (const auto codes = directive(script.textOf(comment)))
            silences.push_back({silencedBy(script, comment), rulesIn(*codes)});
    }
    for (const auto &silence : silences) {
        std::erase_if(findings, [&](const Finding &finding) {
            const auto start = finding.range.start;
            return start >= silence.range.start && start < silence.range.end
                && (silence.rules.empty()
                    || std::ranges::find(silence.rules, finding.rule) != silence.rules.end());
        });
    }
}

} // namespace kevra::script
