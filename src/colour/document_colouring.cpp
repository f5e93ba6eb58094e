// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/document_colouring.h"

#include "colour/keyword_pass.h"
#include "colour/tag_pass.h"
#include "editor/programmatic_change.h"
#include "editor/start_computing.h"

namespace kevra {
namespace {

void leaveAtTop(EditorSurface &document)
{
    document.SetSelStart(0);
    document.SetSelColor(colours::black);
}

} // namespace

DocumentColouring::DocumentColouring(EditorSurface &document, DocumentState &state)
    : m_document(document)
    , m_state(state)
{
}

PendingRuns DocumentColouring::tagsOf(std::string_view text) const
{
    return startComputing(text, [text, code = m_state.codeColour] { return tagRuns(text, code); });
}

PendingRuns DocumentColouring::scriptOf(std::string_view text) const
{
    return startComputing(text, [text, code = m_state.codeColour] { return scriptRuns(text, code); });
}

void DocumentColouring::colourTags()
{
    colourTags(tagsOf(m_document.Text()));
}

void DocumentColouring::colourTags(PendingRuns runs)
{
    const ProgrammaticChange guard(m_state);
    m_document.SetSelColor(colours::black);
    m_document.SetColours({0, m_document.Length()}, runs.get(), Ground::AsItIs);
    leaveAtTop(m_document);
    // A document that has just been coloured counts as not modified.
    m_state.unsaved = false;
}

void DocumentColouring::ColourText()
{
    ColourText(scriptOf(m_document.Text()));
}

void DocumentColouring::ColourText(PendingRuns runs)
{
    const ProgrammaticChange guard(m_state);
    m_document.SetColours({0, m_document.Length()}, runs.get());
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
    const ProgrammaticChange guard(m_state);
    m_document.SetColours({0, m_document.Length()}, {});
    leaveAtTop(m_document);
}

} // namespace kevra
