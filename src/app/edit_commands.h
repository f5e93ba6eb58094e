// SPDX-License-Identifier: GPL-3.0-or-later
// The small commands of the main window's document: select all, clear, word wrap.
#pragma once

#include "app/tool_sets.h"
#include "editor/surface.h"

namespace kevra {

class EditCommands {
public:
    EditCommands(EditorSurface &document, ShellView &view)
        : m_document(document)
        , m_view(view)
    {
    }

    void selectAll() { m_document.Select({0, m_document.Length()}); }
    /// The whole text goes as one step of undo; the clipboard is left alone.
    void clear() { m_document.Replace({0, m_document.Length()}, {}); }
    void toggleWrap()
    {
        const bool wrap = m_document.RightMargin() != 0;
        m_document.SetRightMargin(wrap ? 0 : noWrapMargin);
        m_view.setItemChecked("mwrap", wrap);
    }

private:
    EditorSurface &m_document;
    ShellView &m_view;
};

} // namespace kevra
