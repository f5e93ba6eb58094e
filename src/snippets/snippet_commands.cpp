// SPDX-License-Identifier: GPL-3.0-or-later
#include "snippets/snippet_commands.h"

#include "colour/region_colouring.h"

namespace kevra {

SnippetCommands::SnippetCommands(EditedDocument document, MainView &view)
    : m_surface(document.surface)
    , m_state(document.state)
    , m_view(view)
{
}

void SnippetCommands::insert(const Snippet &snippet)
{
    const auto text = textToInsert(snippet, m_state.options.snippetComments);
    switch (snippet.insertion) {
    case Insertion::Tag:
        return insertTag(text);
    case Insertion::ScriptLine:
        return insertScriptLine(text);
    case Insertion::Bare:
        m_surface.SetSelText(text);
        return m_surface.SetFocus();
    case Insertion::Command:
        return;
    }
}

void SnippetCommands::insertTag(std::string_view text)
{
    m_surface.SetTypingColor(m_state.takesColour() ? m_state.options.codeColour : colours::black);
    m_surface.SetSelText(text);
    m_surface.SetSelColor(colours::black);
    m_surface.SetFocus();
    m_state.unsaved = true;
}

void SnippetCommands::insertScriptLine(std::string_view text)
{
    const auto start = m_surface.SelStart();
    m_surface.SetTypingColor(colours::black);
    m_surface.SetSelText(text);
    m_surface.SetFocus();
    if (m_state.takesColour())
        colourRegion(m_surface, {start, m_surface.SelStart()}, m_state.options.codeColour);
    m_surface.SetSelColor(colours::black);
    m_state.unsaved = true;
    m_view.syncLineNumbers();
}

} // namespace kevra
