// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/document_colouring.h"

#include "colour/keyword_pass.h"
#include "colour/tag_pass.h"
#include "text/flag_guard.h"
#include "text/start_computing.h"

namespace kevra {
namespace {

void leaveAtTop(EditorSurface &document)
{
    document.FinishLines({0, document.Length()});
    document.SetSelStart(0);
    document.SetSelColor(colours::black);
}

} // namespace

DocumentColouring::DocumentColouring(EditorSurface &document, DocumentState &state)
    : m_document(document)
    , m_state(state)
{
}

PendingPaint DocumentColouring::tagsOf(std::string_view text) const
{
    return startComputing(text, [text, code = m_state.codeColour] {
        return paintOf(tagRuns(text, code), static_cast<Offset>(text.size()));
    });
}

PendingPaint DocumentColouring::scriptOf(std::string_view text) const
{
    return startComputing(text, [text, code = m_state.codeColour] {
        return paintOf(scriptRuns(text, code), static_cast<Offset>(text.size()));
    });
}

void DocumentColouring::colourTags()
{
    const FlagGuard programmatic(m_state.programmaticChange);
    m_document.SetSelColor(colours::black);
    const auto runs = tagRuns(m_document.Text(), m_state.codeColour);
    m_document.SetColours({0, m_document.Length()}, runs, Ground::AsItIs);
    finishTags();
}

void DocumentColouring::colourTags(PendingPaint paint)
{
    const FlagGuard programmatic(m_state.programmaticChange);
    m_document.SetPaint(paint.get());
    finishTags();
}

void DocumentColouring::finishTags()
{
    leaveAtTop(m_document);
    // A document that has just been coloured counts as not modified.
    m_state.unsaved = false;
}

void DocumentColouring::ColourText()
{
    const FlagGuard programmatic(m_state.programmaticChange);
    const auto runs = scriptRuns(m_document.Text(), m_state.codeColour);
    m_document.SetColours({0, m_document.Length()}, runs);
    leaveAtTop(m_document);
}

void DocumentColouring::ColourText(PendingPaint paint)
{
    const FlagGuard programmatic(m_state.programmaticChange);
    m_document.SetPaint(paint.get());
    leaveAtTop(m_document);
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
    m_document.SetColours({0, m_document.Length()}, {});
    leaveAtTop(m_document);
}

} // namespace kevra
