// SPDX-License-Identifier: GPL-3.0-or-later
// The small commands of the main window's document: select all, word wrap.
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
