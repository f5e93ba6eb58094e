// SPDX-License-Identifier: GPL-3.0-or-later
// Which part of a control's text is on the screen, and where. A line that is wrapped or broken takes several
// rows; rows count from the top of the text.
#pragma once

#include "editor/editor_control_qt.h"

namespace kevra {

class ControlLayout {
public:
    explicit ControlLayout(const EditorControl &control)
        : m_control(control)
    {
    }

    /// The text of the lines in view.
    [[nodiscard]] TextRange textInView() const;
    /// The line at the top of the view.
    [[nodiscard]] Offset topLine() const;
    [[nodiscard]] Offset rowsInView() const;
    [[nodiscard]] Offset firstRow(Offset line) const;
    [[nodiscard]] Offset rowCount(Offset line) const;
    /// The line around a position, or the part of an overlong line, with its line break.
    [[nodiscard]] TextRange partAround(Offset position) const;

    // In the control's own coordinates.
    /// The bottom left corner of a character.
    [[nodiscard]] QPoint bottomLeft(Offset position) const;
    /// The position between characters that is nearest to a point.
    [[nodiscard]] Offset positionAt(QPoint point) const;

private:
    const EditorControl &m_control;
};

/// Replaces `copy` by the text. Leaves Scintilla's gap where it is, at the last edit.
void copyText(const EditorControl &control, std::string &copy);

} // namespace kevra
