// SPDX-License-Identifier: GPL-3.0-or-later
#include "snippets/snippet_commands.h"

#include "colour/region_colouring.h"

namespace kevra {

SnippetCommands::SnippetCommands(EditorSurface &document, DocumentState &state, MainView &view)
    : m_document(document)
    , m_state(state)
    , m_view(view)
{
}

void SnippetCommands::insert(const Snippet &snippet)
{
    const auto text = textToInsert(snippet, m_state.snippetComments);
    switch (snippet.insertion) {
    case Insertion::Tag:
        return insertTag(text);
    case Insertion::ScriptLine:
        return insertScriptLine(text);
    case Insertion::Bare:
        m_document.SetSelText(text);
        return m_document.SetFocus();
    case Insertion::Command:
        return;
    }
}

void SnippetCommands::insertTag(std::string_view text)
{
    m_document.SetTypingColor(m_state.takesColour() ? m_state.codeColour : colours::black);
    m_document.SetSelText(text);
    m_document.SetSelColor(colours::black);
    m_document.SetFocus();
    m_state.unsaved = true;
}

void SnippetCommands::insertScriptLine(std::string_view text)
{
    const auto start = m_document.SelStart();
    m_document.SetTypingColor(colours::black);
    m_document.SetSelText(text);
    m_document.SetFocus();
    if (m_state.takesColour())
        colourRegion(m_document, {start, m_document.SelStart()}, m_state.codeColour);
    m_document.SetSelColor(colours::black);
    m_state.unsaved = true;
    m_view.syncLineNumbers();
}

} // namespace kevra
