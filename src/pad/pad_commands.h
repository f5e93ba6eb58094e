// SPDX-License-Identifier: GPL-3.0-or-later
// The clipping pad's own cut, copy, paste, clear and undo. They go through the desktop's clipboard; undo
// takes back the last of them and no more. Typing has the control's own undo and is left to it.
#pragma once

#include "desktop/clipboard.h"
#include "editor/surface.h"

#include <string>

namespace kevra {

class PadCommands {
public:
    /// `pad` is the pad's control, `document` the one whose font new text takes. All outlive the commands.
    PadCommands(EditorSurface &pad, const EditorSurface &document, Clipboard &clipboard);

    void PadCut();
    void PadCopy();
    void PadPaste();
    void PadClear();
    void PadUndo();
    void PadSelectAll();

    /// Drops the pad's text and what undo would need.
    void empty();
    /// The pad's text has changed: what undo remembers moves along, and is forgotten where its text was
    /// edited.
    void textChanged(Offset position, Offset removed, Offset added);

private:
    enum class Operation { None, Cut, Copy, Paste, Clear };

    /// Replaces as the pad's own doing, which needs no moving along.
    [[nodiscard]] TextRange pastedAfter(Offset position, Offset removed, Offset added) const;
    void replace(TextRange range, std::string_view text);
    void clipboardTakes(std::string_view text);
    void takeDocumentFont();

    EditorSurface &m_pad;
    const EditorSurface &m_document;
    Clipboard &m_clipboard;
    Operation m_last = Operation::None;
    std::string m_savedText; ///< cut or cleared from the pad, or what a copy drove from the clipboard
    TextRange m_saved; ///< where text was cut, or the pasted stretch
    bool m_replacing = false;
};

} // namespace kevra
