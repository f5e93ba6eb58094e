// SPDX-License-Identifier: GPL-3.0-or-later
// The clipping pad's own cut, copy, paste, clear and undo. They use the desktop's clipboard; undo reverts
// only the last of them. Typing is left to the control's own undo.
#pragma once

#include "desktop/clipboard.h"
#include "editor/surface.h"

#include <string>

namespace kevra {

class PadCommands {
public:
    /// `pad` is the pad's control, `document` the one whose font new text takes. All outlive the commands.
    PadCommands(EditorSurface &pad, const EditorSurface &surface, Clipboard &clipboard);

    void PadCut();
    void PadCopy();
    void PadPaste();
    void PadClear();
    void PadUndo();
    void PadSelectAll();

    /// Clears the pad, and forgets what undo needs.
    void empty();
    /// The pad's text has changed: adjusts the range that undo remembers.
    void textChanged(Offset position, Offset removed, Offset added);

private:
    enum class Operation { None, Cut, Copy, Paste, Clear };

    [[nodiscard]] TextRange pastedAfter(Offset position, Offset removed, Offset added) const;
    /// Without adjusting the range that undo remembers.
    void replaceRange(TextRange range, std::string_view text);
    void setClipboard(std::string_view text);
    void takeDocumentFont();

    EditorSurface &m_pad;
    const EditorSurface &m_surface;
    Clipboard &m_clipboard;
    Operation m_last = Operation::None;
    std::string m_savedText; ///< cut or cleared from the pad, or what a copy replaced in the clipboard
    TextRange m_saved; ///< where text was cut, or the range of the pasted text
    bool m_replacing = false;
};

} // namespace kevra
