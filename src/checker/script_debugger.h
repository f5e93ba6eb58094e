// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/main_view.h"
#include "editor/document_state.h"
#include "editor/surface.h"

namespace kevra {

struct Finding;

/// The checker at work on a document, with what it leaves on the screen.
class ScriptDebugger {
public:
    ScriptDebugger(EditorSurface &document, DocumentState &state, MainView &view);

    /// The command: shows that it is at work, runs, and gives the document the focus.
    void debugDocument();
    /// The run itself: verdict in the information box, faulty line red, colours put back. True when there is
    /// a faulty line.
    bool RunDebugger();
    /// The line that Return has just ended, its line break included.
    void checkFinishedLine(TextRange line);

private:
    void recolour();
    void mark(const Finding &fault);

    EditorSurface &m_document;
    DocumentState &m_state;
    MainView &m_view;
};

} // namespace kevra
