// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/comparison.h"

#include "text/differences.h"

#include <algorithm>

namespace kevra {
namespace {

/// The lines without their line breaks. An empty text after the last break counts as a line.
std::vector<std::string_view> linesOf(std::string_view text)
{
    std::vector<std::string_view> lines;
    for (;;) {
        const auto end = text.find('\n');
        auto line = text.substr(0, end);
        if (line.ends_with('\r') && end != std::string_view::npos)
            line.remove_suffix(1);
        lines.push_back(line);
        if (end == std::string_view::npos)
            return lines;
        text.remove_prefix(end + 1);
    }
}

void addHunk(std::vector<ComparedRow> &rows, const Hunk &hunk)
{
    const auto common = std::min(hunk.beforeCount, hunk.afterCount);
    for (Offset i = 0; i < common; ++i)
        rows.push_back({hunk.beforeStart + i, hunk.afterStart + i, RowKind::Changed});
    for (Offset i = common; i < hunk.beforeCount; ++i)
        rows.push_back({hunk.beforeStart + i, ComparedRow::none, RowKind::Removed});
    for (Offset i = common; i < hunk.afterCount; ++i)
        rows.push_back({ComparedRow::none, hunk.afterStart + i, RowKind::Added});
}

std::string sideText(const std::vector<std::string_view> &lines, const std::vector<ComparedRow> &rows,
    Offset ComparedRow::*side)
{
    std::string text;
    for (const auto &row : rows) {
        if (row.*side != ComparedRow::none)
            text += lines[static_cast<std::size_t>(row.*side)];
        text += "\r\n";
    }
    return text;
}

} // namespace

Comparison compareTexts(std::string_view left, std::string_view right)
{
    const auto leftLines = linesOf(left);
    const auto rightLines = linesOf(right);
    Comparison result;
    Offset l = 0;
    Offset r = 0;
    const auto addSame = [&](Offset until) {
        for (; l < until; ++l, ++r)
            result.rows.push_back({l, r, RowKind::Same});
    };
    for (const auto &hunk : differences(left, right)) {
        addSame(hunk.beforeStart);
        result.differences.push_back(std::ssize(result.rows));
        addHunk(result.rows, hunk);
        l = hunk.beforeStart + hunk.beforeCount;
        r = hunk.afterStart + hunk.afterCount;
    }
    // The diff library does not count an empty line after the last break; the window shows one.
    addSame(std::min(std::ssize(leftLines), l + std::ssize(rightLines) - r));
    addHunk(result.rows, {l, std::ssize(leftLines) - l, r, std::ssize(rightLines) - r});
    result.left = sideText(leftLines, result.rows, &ComparedRow::left);
    result.right = sideText(rightLines, result.rows, &ComparedRow::right);
    return result;
}

} // namespace kevra
