// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/structure.h"

#include "script/layout.h"

#include <algorithm>
#include <tuple>

namespace kevra::script {
namespace {

/// Consecutive lines that hold only a comment.
void appendCommentFolds(const FilePart &part, const Layout &layout, std::vector<Fold> &folds)
{
    Fold run;
    bool open = false;
    for (const auto &comment : layout.comments()) {
        const auto line = layout.lineOf(comment.start);
        const auto start = layout.lineRange(line).start;
        const bool alone = layout.lines()[line].isScript
            && part.script.textOf(TextRange{start, comment.start}).find_first_not_of(" \t")
                == std::string_view::npos;
        if (open && alone && line == run.last + 1) {
            run.last = line;
            continue;
        }
        if (open && run.last > run.first)
            folds.push_back(run);
        open = alone;
        run = {line, line, true};
    }
    if (open && run.last > run.first)
        folds.push_back(run);
}

} // namespace

std::vector<Fold> folds(const FileModel &file)
{
    std::vector<Fold> found;
    for (const auto &part : file.parts()) {
        const Layout layout(file.text(), part->island.pieces);
        for (const auto &block : layout.blocks()) {
            if (block.last > block.first + 1)
                found.push_back({block.first, block.last - 1, false});
        }
        for (const auto &element : part->island.elements) {
            const auto first = layout.lineOf(element.start);
            const auto last = layout.lineOf(element.end - 1);
            if (last > first + 1)
                found.push_back({first, last - 1, false});
        }
        appendCommentFolds(*part, layout, found);
    }
    std::ranges::sort(found, [](const Fold &a, const Fold &b) {
        return std::tuple(a.first, b.last, a.isComment) < std::tuple(b.first, a.last, b.isComment);
    });
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

std::vector<TextRange> widening(const FileModel &file, Offset offset)
{
    std::vector<TextRange> ranges;
    if (const auto *part = file.partAt(offset)) {
        const auto &tree = part->script.tree;
        for (NodeId id = 1; id < tree.size(); ++id) {
            const auto range = tree[id].range();
            if (range.start <= offset && offset <= range.end && !range.empty())
                ranges.push_back(range);
        }
    }
    ranges.push_back({0, static_cast<Offset>(file.text().size())});
    std::ranges::stable_sort(ranges, {}, [](TextRange range) { return range.length(); });
    // If two names are adjacent at the position, only one of them is used.
    std::vector<TextRange> nested;
    for (const auto range : ranges) {
        const bool wider = nested.empty()
            || (range.start <= nested.back().start && range.end >= nested.back().end
                && !(range == nested.back()));
        if (wider)
            nested.push_back(range);
    }
    return nested;
}

} // namespace kevra::script
