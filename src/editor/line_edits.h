// SPDX-License-Identifier: GPL-3.0-or-later
// Commands on whole lines: the text that replaces the selected lines, and the new anchor and caret.
#pragma once

#include "editor/surface.h"

#include <optional>
#include <string>
#include <string_view>

namespace kevra {

struct AnchorAndCaret {
    Offset anchor = 0;
    Offset caret = 0;

    friend bool operator==(const AnchorAndCaret &, const AnchorAndCaret &) = default;
};

struct LineEdit {
    TextRange range;
    std::string text;
    AnchorAndCaret after;
};

/// What turns a line into a comment; `closing` may be empty.
struct CommentMarks {
    std::string_view opening;
    std::string_view closing;
};

/// The comment marks for a file extension (upper case, without the dot) and the tools shown.
[[nodiscard]] CommentMarks commentMarks(std::string_view extension, bool scriptTools);

enum class Move { Up, Down };

// Each takes the selection, and returns nothing if there is nothing to do.

/// Comments the lines out, or uncomments them if all are comments. Skips empty lines, and lines that contain
/// a mark that would end the comment early.
[[nodiscard]] std::optional<LineEdit> toggledComments(
    const EditorSurface &surface, AnchorAndCaret selection, const CommentMarks &marks);
[[nodiscard]] std::optional<LineEdit> movedLines(
    const EditorSurface &surface, AnchorAndCaret selection, Move direction);
/// The copy is below and is selected like the lines were.
[[nodiscard]] std::optional<LineEdit> duplicatedLines(const EditorSurface &surface, AnchorAndCaret selection);
[[nodiscard]] std::optional<LineEdit> deletedLines(const EditorSurface &surface, AnchorAndCaret selection);

/// Removes a tab, or up to `level` spaces, from the start of each line.
[[nodiscard]] std::optional<LineEdit> unindentedLines(
    const EditorSurface &surface, AnchorAndCaret selection, Offset level);

/// The blanks at the start of a position's line that are before the position.
[[nodiscard]] std::string indentationBefore(const EditorSurface &surface, Offset position);

} // namespace kevra
