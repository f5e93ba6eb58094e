// SPDX-License-Identifier: GPL-3.0-or-later
// Small commands on the document, select all and word wrap, and its flag for unsaved changes.
#pragma once

#include "app/tool_sets.h"
#include "editor/document_state.h"
#include "editor/surface.h"

namespace kevra {

class EditCommands {
public:
    EditCommands(EditedDocument document, ShellView &view)
        : m_surface(document.surface)
        , m_state(document.state)
        , m_view(view)
    {
    }

    void selectAll() { m_surface.Select({0, m_surface.TextLength()}); }
    void toggleWrap()
    {
        const bool wrap = m_surface.RightMargin() != 0;
        m_surface.SetRightMargin(wrap ? 0 : noWrapMargin);
        m_view.setItemChecked("mwrap", wrap);
    }

    /// An empty text does not become unsaved.
    void textChanged() { m_state.unsaved = m_state.unsaved || m_surface.TextLength() > 0; }

private:
    EditorSurface &m_surface;
    DocumentState &m_state;
    ShellView &m_view;
};

} // namespace kevra
