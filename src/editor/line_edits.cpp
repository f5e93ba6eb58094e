// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/line_edits.h"

#include "editor/nearby.h"

#include <algorithm>
#include <vector>

namespace kevra {
namespace {

constexpr std::string_view blanks = " \t";
constexpr Offset indentationRead = 1024; ///< bytes at a time
constexpr std::string_view lineBreak = "\r\n";
constexpr Offset breakLength = 2;

std::string_view trimmed(std::string_view text)
{
    const auto start = text.find_first_not_of(blanks);
    if (start == std::string_view::npos)
        return {};
    return text.substr(start, text.find_last_not_of(blanks) + 1 - start);
}

/// The selected lines, without the last line break. A selection that ends at the start of a line does not
/// include it.
TextRange selectedLines(const EditorSurface &surface, AnchorAndCaret selection)
{
    TextRange range{std::min(selection.anchor, selection.caret), std::max(selection.anchor, selection.caret)};
    if (!range.empty() && lineStart(surface, range.end) == range.end)
        range.end -= breakLength;
    return linesOf(surface, range);
}

std::vector<std::string_view> splitIntoLines(std::string_view text)
{
    std::vector<std::string_view> lines;
    for (auto end = text.find(lineBreak); end != std::string_view::npos; end = text.find(lineBreak)) {
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end + lineBreak.size());
    }
    lines.push_back(text);
    return lines;
}

/// Bytes of a line, and their replacement.
struct Splice {
    Offset at = 0;
    Offset removed = 0;
    std::string_view added;
};

struct LineChange {
    std::string_view line;
    Splice opening;
    Splice closing; ///< after the other

    [[nodiscard]] std::string result() const
    {
        std::string text(line);
        for (const auto &splice : {closing, opening})
            text.replace(
                static_cast<std::size_t>(splice.at), static_cast<std::size_t>(splice.removed), splice.added);
        return text;
    }
    /// The new position of a position in the line.
    [[nodiscard]] Offset moved(Offset place) const
    {
        auto result = place;
        for (const auto &splice : {opening, closing})
            if (place > splice.at)
                result += std::ssize(splice.added) - std::min(splice.removed, place - splice.at);
        return result;
    }
};

bool isComment(std::string_view core, const CommentMarks &marks)
{
    const auto opening = trimmed(marks.opening);
    const auto closing = trimmed(marks.closing);
    return core.size() >= opening.size() + closing.size() && core.starts_with(opening)
        && core.ends_with(closing);
}

LineChange commented(std::string_view line, const CommentMarks &marks)
{
    const auto core = trimmed(line);
    const bool holdsMark = !marks.closing.empty()
        && (core.find(trimmed(marks.opening)) != std::string_view::npos
            || core.find(trimmed(marks.closing)) != std::string_view::npos);
    if (core.empty() || holdsMark)
        return {line, {}, {}};
    const auto start = core.data() - line.data();
    return {line, {start, 0, marks.opening}, {start + std::ssize(core), 0, marks.closing}};
}

LineChange uncommented(std::string_view line, const CommentMarks &marks)
{
    const auto core = trimmed(line);
    if (core.empty())
        return {line, {}, {}};
    // With the blanks of the marks, if they are there.
    const auto opening = std::ssize(core.starts_with(marks.opening) ? marks.opening : trimmed(marks.opening));
    const auto inside = core.substr(static_cast<std::size_t>(opening));
    const auto closing = std::ssize(inside.ends_with(marks.closing) ? marks.closing : trimmed(marks.closing));
    const auto start = core.data() - line.data();
    return {line, {start, opening, {}}, {start + std::ssize(core) - closing, closing, {}}};
}

LineChange unindented(std::string_view line, Offset level)
{
    auto blank = line.substr(0, static_cast<std::size_t>(level)).find_first_not_of(' ');
    blank = std::min({blank, line.size(), static_cast<std::size_t>(level)});
    const bool tab = std::ssize(line.substr(0, blank)) < level && line.substr(blank).starts_with('\t');
    return {line, {0, static_cast<Offset>(blank) + tab, {}}, {}};
}

LineEdit joined(TextRange range, const std::vector<LineChange> &changes, AnchorAndCaret selection)
{
    LineEdit edit{range, {}, selection};
    auto start = range.start;
    for (const auto &change : changes) {
        const auto end = start + std::ssize(change.line);
        const auto shift = range.start + std::ssize(edit.text);
        for (auto [before, after] :
            {std::pair(selection.anchor, &edit.after.anchor), std::pair(selection.caret, &edit.after.caret)})
            if (before >= start && before <= end)
                *after = shift + change.moved(before - start);
        edit.text += change.result();
        if (end < range.end)
            edit.text += lineBreak;
        start = end + breakLength;
    }
    const auto grown = std::ssize(edit.text) - range.length();
    for (auto [before, after] :
        {std::pair(selection.anchor, &edit.after.anchor), std::pair(selection.caret, &edit.after.caret)})
        if (before > range.end)
            *after = before + grown;
    return edit;
}

template <typename Change>
std::optional<LineEdit> changedLines(
    TextRange range, const std::string &text, AnchorAndCaret selection, const Change &change)
{
    std::vector<LineChange> changes;
    for (const auto line : splitIntoLines(text))
        changes.push_back(change(line));
    auto edit = joined(range, changes, selection);
    if (edit.text == text)
        return std::nullopt;
    return edit;
}

} // namespace

CommentMarks commentMarks(std::string_view extension, bool scriptTools)
{
    if (extension == "JS")
        return {"//", ""};
    if (extension == "CSS")
        return {"/* ", " */"};
    return scriptTools ? CommentMarks{"'", ""} : CommentMarks{"<!-- ", " -->"};
}

std::optional<LineEdit> toggledComments(
    const EditorSurface &surface, AnchorAndCaret selection, const CommentMarks &marks)
{
    const auto range = selectedLines(surface, selection);
    const std::string text(surface.Text(range));
    const auto lines = splitIntoLines(text);
    const bool all = std::ranges::all_of(lines,
        [&](std::string_view line) { return trimmed(line).empty() || isComment(trimmed(line), marks); });
    return changedLines(range, text, selection,
        [&](std::string_view line) { return all ? uncommented(line, marks) : commented(line, marks); });
}

std::optional<LineEdit> unindentedLines(const EditorSurface &surface, AnchorAndCaret selection, Offset level)
{
    const auto range = selectedLines(surface, selection);
    return changedLines(range, std::string(surface.Text(range)), selection,
        [&](std::string_view line) { return unindented(line, level); });
}

std::optional<LineEdit> movedLines(const EditorSurface &surface, AnchorAndCaret selection, Move direction)
{
    const auto lines = selectedLines(surface, selection);
    const bool up = direction == Move::Up;
    if (up ? lines.start == 0 : lines.end == surface.TextLength())
        return std::nullopt;
    const auto beside = up ? lines.start - breakLength : lines.end + breakLength;
    const auto other = linesOf(surface, {beside, beside});
    const TextRange both{std::min(lines.start, other.start), std::max(lines.end, other.end)};
    auto text = std::string(surface.Text(up ? lines : other));
    text += lineBreak;
    text += surface.Text(up ? other : lines);
    const auto by = other.length() + breakLength;
    const auto shift = up ? -by : by;
    // A selection of whole lines may end after the last line of the text.
    const auto moved = [&](Offset place) { return std::min(place + shift, surface.TextLength()); };
    return LineEdit{both, std::move(text), {moved(selection.anchor), moved(selection.caret)}};
}

std::optional<LineEdit> duplicatedLines(const EditorSurface &surface, AnchorAndCaret selection)
{
    const auto lines = selectedLines(surface, selection);
    auto text = std::string(lineBreak);
    text += surface.Text(lines);
    const auto by = std::ssize(text);
    return LineEdit{{lines.end, lines.end}, std::move(text), {selection.anchor + by, selection.caret + by}};
}

std::optional<LineEdit> deletedLines(const EditorSurface &surface, AnchorAndCaret selection)
{
    auto lines = selectedLines(surface, selection);
    const bool last = lines.end == surface.TextLength();
    if (!last)
        lines.end += breakLength;
    else if (lines.start > 0)
        lines.start -= breakLength;
    if (lines.empty())
        return std::nullopt;
    const auto caret = last ? lineStart(surface, lines.start) : lines.start;
    return LineEdit{lines, {}, {caret, caret}};
}

std::string indentationBefore(const EditorSurface &surface, Offset position)
{
    std::string indentation;
    for (auto at = lineStart(surface, position); at < position;) {
        const auto part = surface.Text({at, std::min(position, at + indentationRead)});
        const auto length = std::min(part.find_first_not_of(blanks), part.size());
        indentation += part.substr(0, length);
        at = length < part.size() ? position : at + std::ssize(part);
    }
    return indentation;
}

} // namespace kevra
