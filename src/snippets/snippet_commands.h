// SPDX-License-Identifier: GPL-3.0-or-later
// Inserts a snippet at the caret, in its colours. Afterwards the caret is after it and typing is black.
#pragma once

#include "desktop/main_view.h"
#include "editor/document_state.h"
#include "editor/surface.h"
#include "snippets/snippets.h"

namespace kevra {

class SnippetCommands {
public:
    SnippetCommands(EditedDocument document, MainView &view);

    /// A snippet that is a command inserts nothing.
    void insert(const Snippet &snippet);

private:
    void insertTag(std::string_view text);
    void insertScriptLine(std::string_view text);

    EditorSurface &m_surface;
    DocumentState &m_state;
    MainView &m_view;
};

} // namespace kevra
