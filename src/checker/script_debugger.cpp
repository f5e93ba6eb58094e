// SPDX-License-Identifier: GPL-3.0-or-later
#include "checker/script_debugger.h"

#include "checker/checker.h"
#include "checker/line_rules.h"
#include "colour/document_colouring.h"
#include "text/flag_guard.h"

#include <algorithm>

namespace kevra {

ScriptDebugger::ScriptDebugger(EditorSurface &document, DocumentState &state, MainView &view)
    : m_document(document)
    , m_state(state)
    , m_view(view)
{
}

void ScriptDebugger::debugDocument()
{
    bool marked = false;
    {
        const BusySurface busy(m_document);
        m_view.setInformation("Debugging. . .");
        marked = RunDebugger();
    }
    m_document.SetFocus();
    // The busy control did not scroll. Only a faulty line is scrolled into view now.
    if (marked)
        m_document.SetSelStart(m_document.SelStart());
}

bool ScriptDebugger::RunDebugger()
{
    const FlagGuard programmatic(m_state.programmaticChange);
    const auto result = check(m_document.Text(), m_state.ifChecking);
    if (result.reachedBlocks)
        DocumentColouring(m_document, m_state).removeColours();
    if (m_state.takesColour() && (result.reachedBlocks || result.recolourBeforeMark))
        recolour();
    m_view.setInformation(result.verdict);
    if (result.fault)
        mark(*result.fault);
    else
        m_document.SetSelStart(0);
    m_view.syncLineNumbers();
    return result.fault.has_value();
}

void ScriptDebugger::recolour()
{
    DocumentColouring colouring(m_document, m_state);
    colouring.removeColours();
    colouring.colourForTools();
}

void ScriptDebugger::mark(const Finding &fault)
{
    const ColourRun red{fault.marked, colours::fault};
    m_document.SetColours(fault.marked, {&red, 1});
    m_document.SetSelStart(fault.caret);
    m_document.SetSelColor(colours::black);
}

void ScriptDebugger::checkFinishedLine(TextRange line)
{
    // The rules read one character after the line and a few before it, never more.
    constexpr Offset around = 8;
    const auto base = std::max<Offset>(line.start - around, 0);
    const auto text = m_document.Text({base, std::min(line.end + around, m_document.Length())});
    const auto number = m_document.GetLineFromChar(line.start + 1) + 1;
    auto fault = CheckLine(text, {line.start - base, line.end - base}, number);
    if (!fault)
        return;
    fault->marked = {fault->marked.start + base, fault->marked.end + base};
    fault->caret += base;
    m_view.setInformation(fault->message);
    mark(*fault);
}

} // namespace kevra
