// SPDX-License-Identifier: GPL-3.0-or-later
// Commands on whole lines: what text takes the place of the lines selected, and where anchor and caret go.
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

/// What makes a line a comment; `closing` may be empty.
struct CommentMarks {
    std::string_view opening;
    std::string_view closing;
};

/// The marks of a file of this type (upper case, without the dot) in the tools shown.
[[nodiscard]] CommentMarks commentMarks(std::string_view extension, bool scriptTools);

enum class Move { Up, Down };

// Each is given the selection; nothing comes back where there is nothing to do.

/// Makes comments of the lines, or lines of the comments when all of them are. Empty lines stay as they are,
/// and so do lines that hold a mark already, which would end the comment early.
[[nodiscard]] std::optional<LineEdit> toggledComments(
    const EditorSurface &document, AnchorAndCaret selection, const CommentMarks &marks);
[[nodiscard]] std::optional<LineEdit> movedLines(
    const EditorSurface &document, AnchorAndCaret selection, Move direction);
/// The copy stands below and is selected as the lines were.
[[nodiscard]] std::optional<LineEdit> duplicatedLines(
    const EditorSurface &document, AnchorAndCaret selection);
[[nodiscard]] std::optional<LineEdit> deletedLines(const EditorSurface &document, AnchorAndCaret selection);

/// Takes a tab, or up to `level` spaces, off the start of each line.
[[nodiscard]] std::optional<LineEdit> unindentedLines(
    const EditorSurface &document, AnchorAndCaret selection, Offset level);

/// The blanks at the start of a position's line, as far as they stand before the position.
[[nodiscard]] std::string indentationBefore(const EditorSurface &document, Offset position);

} // namespace kevra
