// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/main_view.h"
#include "editor/document_state.h"
#include "editor/surface.h"

namespace kevra {

struct Fault;

/// Runs the checker on a document and shows the result.
class ScriptDebugger {
public:
    ScriptDebugger(EditedDocument document, MainView &view);

    /// The command: shows that it is busy, runs the check, and gives the document the focus.
    void debugDocument();
    /// The check itself: shows the verdict in the information box, restores the colours and marks a faulty
    /// line in red. True if there is a faulty line.
    bool RunDebugger();
    /// Checks the line that Return has just ended; `line` includes its line break.
    void checkFinishedLine(TextRange line);

private:
    void recolour();
    void mark(const Fault &fault);

    EditorSurface &m_surface;
    DocumentState &m_state;
    MainView &m_view;
};

} // namespace kevra
