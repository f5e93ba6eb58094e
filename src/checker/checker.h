// SPDX-License-Identifier: GPL-3.0-or-later
// A run of the checker: the line rules on every complete line, then the blocks, then the object references.
// The first fault found is the verdict.
#pragma once

#include "checker/finding.h"
#include "document/document_state.h"
#include "document/main_view.h"
#include "editor/surface.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

struct CheckResult {
    std::string verdict = "OK";
    std::optional<Finding> fault; ///< the line that is marked, if the verdict is about one
    /// The faulty line was not the last one checked: the text is coloured anew before the line is marked.
    bool recolourBeforeMark = false;
    bool reachedBlocks = false; ///< every line passed, and the whole text was gone through
};

/// Judges a script. Costs a few passes over the text whatever it holds.
[[nodiscard]] CheckResult check(std::string_view text, bool ifChecking);

/// Every finding: of all lines, then all kinds of blocks, which have no line, then all object references.
[[nodiscard]] std::vector<Finding> checkAll(std::string_view text, bool ifChecking);

/// The line, from 1, that a finding's text names at its end; nothing when it is about the whole script.
[[nodiscard]] std::optional<Offset> lineNamedBy(std::string_view finding);

/// The checker at work on a document, with what it leaves on the screen.
class Checker {
public:
    Checker(EditorSurface &document, DocumentState &state, MainView &view);

    /// The command: shows that it is at work, runs, and gives the document the focus.
    void runDebugger();
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
