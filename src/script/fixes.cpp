// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/fixes.h"

#include "script/tree.h"

#include <algorithm>

namespace kevra::script {
namespace {

/// Insertions at the same position have no defined order, so they count as overlapping.
[[nodiscard]] bool overlaps(const TextEdit &a, const TextEdit &b)
{
    return a.range.start == b.range.start || (a.range.start < b.range.end && b.range.start < a.range.end);
}

/// The edits of firstFixes(), and the findings they belong to.
struct ChosenFixes {
    std::vector<TextEdit> edits;
    std::vector<std::size_t> findings;
};

ChosenFixes chooseFixes(std::span<const Finding> findings)
{
    const auto before = [](const TextEdit &a, const TextEdit &b) { return a.range.start < b.range.start; };
    ChosenFixes chosen;
    auto &edits = chosen.edits;
    for (std::size_t i = 0; i < findings.size(); ++i) {
        if (findings[i].fixes.empty())
            continue;
        const auto &fix = findings[i].fixes.front().edits;
        const bool free = std::ranges::none_of(fix, [&](const TextEdit &edit) {
            const auto next = std::ranges::lower_bound(edits, edit, before);
            return (next != edits.end() && overlaps(*next, edit))
                || (next != edits.begin() && overlaps(*std::prev(next), edit));
        });
        if (!free)
            continue;
        chosen.findings.push_back(i);
        for (const auto &edit : fix)
            edits.insert(std::ranges::upper_bound(edits, edit, before), edit);
    }
    return chosen;
}

std::ptrdiff_t errorCount(std::span<const Finding> findings)
{
    return std::ranges::count(findings, Level::Error, &Finding::level);
}

} // namespace

std::string edited(std::string_view text, std::span<const TextEdit> edits)
{
    std::string out;
    std::size_t at = 0;
    for (const auto &edit : edits) {
        out += text.substr(at, static_cast<std::size_t>(edit.range.start) - at);
        out += edit.text;
        at = static_cast<std::size_t>(edit.range.end);
    }
    return out += text.substr(at);
}

std::vector<TextEdit> firstFixes(std::span<const Finding> findings)
{
    return chooseFixes(findings).edits;
}

FixedText fixAll(std::string_view text, const std::function<std::vector<Finding>(std::string_view)> &analysis)
{
    // One fix may make another possible. More rounds than this are a cycle.
    constexpr int maxRounds = 10;
    FixedText result{std::string(text), {}, analysis(text)};
    for (int round = 0; round < maxRounds; ++round) {
        const auto chosen = chooseFixes(result.left);
        if (chosen.edits.empty())
            break;
        auto fixed = edited(result.text, chosen.edits);
        auto left = analysis(fixed);
        if (errorCount(left) > errorCount(result.left))
            break;
        const LineIndex lines(result.text);
        for (const auto index : chosen.findings) {
            const auto &finding = result.left[index];
            result.applied.push_back(
                {finding.rule, lines.lineAt(finding.range.start), finding.fixes.front().title});
        }
        result.text = std::move(fixed);
        result.left = std::move(left);
    }
    return result;
}

} // namespace kevra::script
