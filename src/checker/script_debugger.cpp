// SPDX-License-Identifier: GPL-3.0-or-later
#include "checker/script_debugger.h"

#include "checker/checker.h"
#include "checker/line_rules.h"
#include "colour/document_colouring.h"
#include "text/flag_guard.h"

#include <algorithm>

namespace kevra {

ScriptDebugger::ScriptDebugger(EditedDocument document, MainView &view)
    : m_surface(document.surface)
    , m_state(document.state)
    , m_view(view)
{
}

void ScriptDebugger::debugDocument()
{
    bool marked = false;
    {
        const BusySurface busy(m_surface);
        m_view.setInformation("Debugging. . .");
        marked = RunDebugger();
    }
    m_surface.SetFocus();
    // The busy control did not scroll. Only a faulty line is scrolled into view now.
    if (marked)
        m_surface.SetSelStart(m_surface.SelStart());
}

bool ScriptDebugger::RunDebugger()
{
    const FlagGuard programmatic(m_state.programmaticChange);
    const auto result = check(m_surface.Text(), m_state.options.ifChecking);
    if (result.reachedBlocks)
        DocumentColouring({m_surface, m_state}).removeColours();
    if (m_state.takesColour() && (result.reachedBlocks || result.recolourBeforeMark))
        recolour();
    m_view.setInformation(result.verdict);
    if (result.fault)
        mark(*result.fault);
    else
        m_surface.SetSelStart(0);
    m_view.syncLineNumbers();
    return result.fault.has_value();
}

void ScriptDebugger::recolour()
{
    DocumentColouring colouring({m_surface, m_state});
    colouring.removeColours();
    colouring.colourForTools();
}

void ScriptDebugger::mark(const Fault &fault)
{
    const ColourRun red{fault.marked, colours::fault};
    m_surface.SetColours(fault.marked, {&red, 1});
    m_surface.SetSelStart(fault.caret);
    m_surface.SetSelColor(colours::black);
}

void ScriptDebugger::checkFinishedLine(TextRange line)
{
    // The rules read one character after the line and a few before it, never more.
    constexpr Offset around = 8;
    const auto base = std::max<Offset>(line.start - around, 0);
    const auto text = m_surface.Text({base, std::min(line.end + around, m_surface.TextLength())});
    const auto number = m_surface.GetLineFromChar(line.start + 1) + 1;
    auto fault = CheckLine(text, {line.start - base, line.end - base}, number);
    if (!fault)
        return;
    fault->marked = {fault->marked.start + base, fault->marked.end + base};
    fault->caret += base;
    m_view.setInformation(fault->message);
    mark(*fault);
}

} // namespace kevra
