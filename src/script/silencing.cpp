// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/silencing.h"

#include "script/sorted_names.h"

#include <algorithm>
#include <optional>
#include <span>

namespace kevra::script {
namespace {

constexpr std::string_view blanks = " \t";

/// The text after "kevra: off" in a comment; nothing for other comments.
[[nodiscard]] std::optional<std::string_view> directive(std::string_view comment)
{
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

/// Every statement in text order, outer ones before inner ones.
[[nodiscard]] std::vector<TextRange> statementsOf(const ParsedScript &script)
{
    std::vector<TextRange> statements;
    for (NodeId id = 1; id < script.tree.size(); ++id) {
        if (!isStatementList(script.tree[id].kind))
            continue;
        for (const auto statement : script.tree.children(id))
            statements.push_back(script.tree[statement].range());
    }
    std::ranges::sort(statements,
        [](TextRange a, TextRange b) { return a.start != b.start ? a.start < b.start : a.end > b.end; });
    return statements;
}

[[nodiscard]] TextRange silencedBy(
    const ParsedScript &script, std::span<const TextRange> statements, TextRange comment)
{
    const auto lineStart = lineStartBefore(script.text, comment.start);
    const auto before = script.textOf({lineStart, comment.start});
    if (before.find_first_not_of(blanks) != std::string_view::npos)
        return {lineStart, comment.end};
    const auto next = std::ranges::lower_bound(statements, comment.end, {}, &TextRange::start);
    return {comment.start, next == statements.end() ? comment.end : next->end};
}

[[nodiscard]] std::string_view withoutMark(std::string_view comment)
{
    return comment.substr(comment.starts_with('\'') ? 1 : std::min<std::size_t>(comment.size(), 3));
}

} // namespace

std::optional<std::vector<Rule>> rulesSwitchedOff(std::string_view comment)
{
    const auto codes = directive(comment);
    return codes ? std::optional(rulesIn(*codes)) : std::nullopt;
}

void dropSilenced(std::span<const Silence> silences, std::vector<Finding> &findings)
{
    if (silences.empty())
        return;
    std::vector<bool> dropped(findings.size());
    const auto startOf = [](const Finding &finding) { return finding.range.start; };
    for (const auto &silence : silences) {
        auto at = std::ranges::lower_bound(findings, silence.range.start, {}, startOf);
        for (; at != findings.end() && startOf(*at) < silence.range.end; ++at) {
            if (silence.rules.empty() || std::ranges::find(silence.rules, at->rule) != silence.rules.end())
                dropped[static_cast<std::size_t>(at - findings.begin())] = true;
        }
    }
    std::vector<Finding> kept;
    for (std::size_t i = 0; i < findings.size(); ++i) {
        if (!dropped[i])
            kept.push_back(std::move(findings[i]));
    }
    findings = std::move(kept);
}

void dropSilenced(const ParsedScript &script, std::vector<Finding> &findings)
{
    if (findings.empty())
        return;
    std::vector<Silence> silences;
    std::vector<TextRange> statements;
    for (const auto comment : script.comments) {
        auto rules = rulesSwitchedOff(withoutMark(script.textOf(comment)));
        if (rules && statements.empty())
            statements = statementsOf(script);
        if (rules)
            silences.push_back({silencedBy(script, statements, comment), std::move(*rules)});
    }
    dropSilenced(silences, findings);
}

} // namespace kevra::script
