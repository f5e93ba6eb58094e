// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/fixes.h"

#include <algorithm>

namespace kevra::script {
namespace {

/// Insertions at one place would come in an arbitrary order, so they count as overlapping.
[[nodiscard]] bool overlaps(const TextEdit &a, const TextEdit &b)
{
    return a.range.start == b.range.start || (a.range.start < b.range.end && b.range.start < a.range.end);
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
    const auto before = [](const TextEdit &a, const TextEdit &b) { return a.range.start < b.range.start; };
    std::vector<TextEdit> edits;
    for (const auto &finding : findings) {
        if (finding.fixes.empty())
            continue;
        const auto &fix = finding.fixes.front().edits;
        const bool free = std::ranges::none_of(fix, [&](const TextEdit &edit) {
            const auto next = std::ranges::lower_bound(edits, edit, before);
            return (next != edits.end() && overlaps(*next, edit))
                || (next != edits.begin() && overlaps(*std::prev(next), edit));
        });
        for (const auto &edit : fix) {
            if (free)
                edits.insert(std::ranges::upper_bound(edits, edit, before), edit);
        }
    }
    return edits;
}

} // namespace kevra::script
