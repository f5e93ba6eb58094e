// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/reveal_qt.h"

#include "editor/editor_control_qt.h"

namespace kevra {

void revealCaret(EditorControl &document)
{
    const auto height = document.SendScintilla(QsciScintillaBase::SCI_TEXTHEIGHT, 0UL);
    const auto row = document.bottomLeftOf(document.anchorAndCaret().caret).y() / height - 1;
    if (row <= 0 || row >= document.linesOnScreen() - 1)
        document.SendScintilla(QsciScintillaBase::SCI_VERTICALCENTRECARET);
}

void goTo(EditorControl &document, TextRange range)
{
    document.Select(range);
    revealCaret(document);
    document.SetFocus();
}

} // namespace kevra
