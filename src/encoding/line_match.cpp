// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/line_match.h"

#include "text/differences.h"

#include <algorithm>
#include <string>

namespace kevra {
namespace {

using Lines = std::vector<std::string_view>;
using Origins = std::vector<std::optional<std::size_t>>;

std::string joined(const Lines &lines)
{
    std::string text;
    for (const auto line : lines)
        text.append(line) += '\n';
    return text;
}

Offset changedInPlace(const Lines &before, const Lines &after)
{
    Offset changed = 0;
    for (std::size_t i = 0; i < before.size(); ++i)
        changed += before[i] != after[i];
    return changed;
}

Offset removedLines(const std::vector<Hunk> &hunks)
{
    Offset lines = 0;
    for (const auto &hunk : hunks)
        lines += hunk.beforeCount;
    return lines;
}

/// Maps `count` lines starting at `after` to as many lines starting at `before`.
void mapLines(Origins &origins, Offset before, Offset after, Offset count)
{
    for (Offset i = 0; i < count; ++i)
        origins[static_cast<std::size_t>(after + i)] = static_cast<std::size_t>(before + i);
}

} // namespace

Origins matchLines(const Lines &before, const Lines &after)
{
    const auto hunks = differences(joined(before), joined(after));
    Origins origins(after.size());
    // If the number of lines is unchanged, lines changed in place are the likelier explanation.
    if (before.size() == after.size() && changedInPlace(before, after) <= removedLines(hunks)) {
        mapLines(origins, 0, 0, std::ssize(after));
        return origins;
    }
    Offset old = 0;
    Offset now = 0;
    for (const auto &hunk : hunks) {
        mapLines(origins, old, now, hunk.afterStart - now);
        mapLines(origins, hunk.beforeStart, hunk.afterStart, std::min(hunk.beforeCount, hunk.afterCount));
        old = hunk.beforeStart + hunk.beforeCount;
        now = hunk.afterStart + hunk.afterCount;
    }
    mapLines(origins, old, now, std::ssize(after) - now);
    return origins;
}

} // namespace kevra
