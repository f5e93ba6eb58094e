// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/reveal_qt.h"
#include "editor/control_layout_qt.h"

#include "editor/editor_control_qt.h"

namespace kevra {

void revealCaret(EditorControl &control)
{
    const auto height = control.SendScintilla(QsciScintillaBase::SCI_TEXTHEIGHT, 0UL);
    const auto row = ControlLayout(control).bottomLeft(control.anchorAndCaret().caret).y() / height - 1;
    if (row <= 0 || row >= ControlLayout(control).rowsInView() - 1)
        control.SendScintilla(QsciScintillaBase::SCI_VERTICALCENTRECARET);
}

void goTo(EditorControl &control, TextRange range)
{
    control.Select(range);
    revealCaret(control);
    control.SetFocus();
}

} // namespace kevra
