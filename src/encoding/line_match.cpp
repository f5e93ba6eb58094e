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

Offset linesTakenOut(const std::vector<Hunk> &hunks)
{
    Offset lines = 0;
    for (const auto &hunk : hunks)
        lines += hunk.beforeCount;
    return lines;
}

/// Each new line in the place of the old one at the same distance from the start.
void takePlaces(Origins &origins, Offset before, Offset after, Offset count)
{
    for (Offset i = 0; i < count; ++i)
        origins[static_cast<std::size_t>(after + i)] = static_cast<std::size_t>(before + i);
}

} // namespace

Origins matchLines(const Lines &before, const Lines &after)
{
    const auto hunks = differences(joined(before), joined(after));
    Origins origins(after.size());
    // With as many lines as before, lines changed in their places explain the same better.
    if (before.size() == after.size() && changedInPlace(before, after) <= linesTakenOut(hunks)) {
        takePlaces(origins, 0, 0, std::ssize(after));
        return origins;
    }
    Offset old = 0;
    Offset now = 0;
    for (const auto &hunk : hunks) {
        takePlaces(origins, old, now, hunk.afterStart - now);
        takePlaces(origins, hunk.beforeStart, hunk.afterStart, std::min(hunk.beforeCount, hunk.afterCount));
        old = hunk.beforeStart + hunk.beforeCount;
        now = hunk.afterStart + hunk.afterCount;
    }
    takePlaces(origins, old, now, std::ssize(after) - now);
    return origins;
}

} // namespace kevra
