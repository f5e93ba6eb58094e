// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/document_colouring.h"

#include "colour/keyword_pass.h"
#include "colour/tag_pass.h"
#include "text/flag_guard.h"
#include "text/start_computing.h"

namespace kevra {
namespace {

void leaveAtTop(EditorSurface &surface)
{
    surface.FinishLines({0, surface.TextLength()});
    surface.SetSelStart(0);
    surface.SetSelColor(colours::black);
}

} // namespace

DocumentColouring::DocumentColouring(EditedDocument document)
    : m_surface(document.surface)
    , m_state(document.state)
{
}

PendingPaint DocumentColouring::tagsOf(std::string_view text) const
{
    return startComputing(text, [text, code = m_state.options.codeColour] {
        return paintOf(tagRuns(text, code), static_cast<Offset>(text.size()));
    });
}

PendingPaint DocumentColouring::scriptOf(std::string_view text) const
{
    return startComputing(text, [text, code = m_state.options.codeColour] {
        return paintOf(scriptRuns(text, code), static_cast<Offset>(text.size()));
    });
}

void DocumentColouring::colourTags()
{
    const FlagGuard programmatic(m_state.programmaticChange);
    m_surface.SetSelColor(colours::black);
    const auto runs = tagRuns(m_surface.Text(), m_state.options.codeColour);
    m_surface.SetColours({0, m_surface.TextLength()}, runs, Ground::AsItIs);
    finishTags();
}

void DocumentColouring::colourTags(PendingPaint paint)
{
    const FlagGuard programmatic(m_state.programmaticChange);
    m_surface.SetPaint(paint.get());
    finishTags();
}

void DocumentColouring::finishTags()
{
    leaveAtTop(m_surface);
    // A document that has just been coloured counts as not modified.
    m_state.unsaved = false;
}

void DocumentColouring::ColourText()
{
    const FlagGuard programmatic(m_state.programmaticChange);
    const auto runs = scriptRuns(m_surface.Text(), m_state.options.codeColour);
    m_surface.SetColours({0, m_surface.TextLength()}, runs);
    leaveAtTop(m_surface);
}

void DocumentColouring::ColourText(PendingPaint paint)
{
    const FlagGuard programmatic(m_state.programmaticChange);
    m_surface.SetPaint(paint.get());
    leaveAtTop(m_surface);
}

void DocumentColouring::colourForTools()
{
    if (m_state.scriptTools)
        ColourText();
    else
        colourTags();
}

void DocumentColouring::removeColours()
{
    const FlagGuard programmatic(m_state.programmaticChange);
    m_surface.SetColours({0, m_surface.TextLength()}, {});
    leaveAtTop(m_surface);
}

} // namespace kevra
