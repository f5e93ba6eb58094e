// SPDX-License-Identifier: GPL-3.0-or-later
// The small commands of the main window's document: select all, word wrap; and that it has been changed.
#pragma once

#include "app/tool_sets.h"
#include "editor/document_state.h"
#include "editor/surface.h"

namespace kevra {

class EditCommands {
public:
    EditCommands(EditorSurface &document, DocumentState &state, ShellView &view)
        : m_document(document)
        , m_state(state)
        , m_view(view)
    {
    }

    void selectAll() { m_document.Select({0, m_document.Length()}); }
    void toggleWrap()
    {
        const bool wrap = m_document.RightMargin() != 0;
        m_document.SetRightMargin(wrap ? 0 : noWrapMargin);
        m_view.setItemChecked("mwrap", wrap);
    }

    /// An empty text has nothing that could be lost.
    void textChanged() { m_state.unsaved = m_state.unsaved || m_document.Length() > 0; }

private:
    EditorSurface &m_document;
    DocumentState &m_state;
    ShellView &m_view;
};

} // namespace kevra
