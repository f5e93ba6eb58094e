// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/typing_colouring.h"

#include "colour/recolouring.h"
#include "colour/region_colouring.h"
#include "editor/nearby.h"
#include "text/words.h"

#include <algorithm>
#include <utility>

namespace kevra {
namespace {

constexpr Offset fewCharacters = 16; // bytes; enough to distinguish three characters from fewer

/// The number of characters before a position; exact only if it is small.
Offset charactersBefore(const EditorSurface &document, Offset position)
{
    return characterCount(document.Text({0, std::min(position, fewCharacters)}));
}

Offset previousCharacter(const EditorSurface &document, Offset position)
{
    const auto start = std::max<Offset>(position - 4, 0);
    return start + characterBefore(document.Text({start, position}), position - start);
}

} // namespace

TypingColouring::TypingColouring(
    EditorSurface &document, DocumentState &state, MainView &view, std::function<void(TextRange)> checkLine)
    : m_document(document)
    , m_state(state)
    , m_view(view)
    , m_checkLine(std::move(checkLine))
{
}

void TypingColouring::keyTyped(char32_t character)
{
    if (!m_state.takesColour())
        return;
    if (m_state.scriptTools)
        m_document.SetTypingColor(colours::black);
    else
        typeInPage(character);
}

void TypingColouring::typeInPage(char32_t character)
{
    const auto selection = m_document.Selection();
    if (character == U'<') {
        paintTagOpenedAt(selection);
        m_document.SetTypingColor(m_state.codeColour);
    } else if (character == U'>') {
        m_tagClosed = true;
        paintTagClosedAt(selection.start);
        m_document.SetTypingColor(m_state.codeColour);
    } else if (std::exchange(m_tagClosed, false)) {
        typeAfterTag();
    }
}

/// The new "<" opens a tag if a ">" follows before any other "<".
void TypingColouring::paintTagOpenedAt(TextRange selection)
{
    const auto mark = firstOf(m_document, "<>", selection.end, selection.end + keyReach);
    if (mark == -1 || m_document.Text({mark, mark + 1}) != ">")
        return;
    const ColourRun tag{{selection.end, mark + 1}, m_state.codeColour};
    m_document.SetColours(tag.range, {&tag, 1});
}

void TypingColouring::paintTagClosedAt(Offset caret)
{
    const auto before = charactersBefore(m_document, caret);
    if (before < 2)
        return;
    const auto opening = lastOf(m_document, '<', caret, std::max<Offset>(0, caret - keyReach));
    if (opening == -1)
        return;
    // A ">" among the two characters before the caret does not count as the end of the tag.
    const auto twoBack = previousCharacter(m_document, previousCharacter(m_document, caret));
    if (before >= 3 && lastOf(m_document, '>', twoBack, opening) != -1)
        return;
    const ColourRun tag{{opening, caret}, m_state.codeColour};
    m_document.SetColours(tag.range, {&tag, 1});
}

/// Text after a tag is black, unless a new tag starts immediately.
void TypingColouring::typeAfterTag()
{
    const auto caret = m_document.SelStart();
    const auto start = charactersBefore(m_document, caret) < 2
        ? Offset{0}
        : previousCharacter(m_document, previousCharacter(m_document, caret));
    if (m_document.Text({start, start + 2}) != "><")
        m_document.SetTypingColor(colours::black);
}

void TypingColouring::keyReleased(int key)
{
    if (key == keys::enter && m_state.scriptTools && m_document.GetLineFromChar(m_document.SelStart()) > 0)
        finishLine();
}

void TypingColouring::finishLine()
{
    // Automatic indentation may be between the line break and the caret.
    const auto caret = m_document.SelStart();
    if (onLongLine(m_document, {caret, caret}))
        return m_view.syncLineNumbers();
    const auto end = lineStart(m_document, caret);
    if (onLongLine(m_document, {end - 2, end - 2}))
        return m_view.syncLineNumbers();
    const TextRange line{lastOf(m_document, '\n', end - 2) + 1, end};
    if (m_state.takesColour())
        recolourRegion(m_document, line, m_state.codeColour);
    m_document.FinishLines({line.start, line.end - 1});
    if (m_state.lineDebugPreferred && m_state.lineDebugOn)
        m_checkLine(line);
    m_view.syncLineNumbers();
}

void TypingColouring::edited(TextRange touched, EditKind kind)
{
    if (kind == EditKind::Typing)
        return noteTyped(touched);
    if (kind == EditKind::Program)
        return;
    m_tagClosed = false;
    if (!m_state.takesColour())
        return;
    if (!m_state.scriptTools)
        recolourTags(m_document, touched, m_state.codeColour);
    else if (kind == EditKind::Paste || kind == EditKind::Drop)
        recolourInserted(m_document, touched, m_state);
    else
        recolourScript(m_document, touched, m_state.codeColour);
    m_document.SetTypingColor(colourAroundCaret());
}

/// A line of a script stays black until Return or a click finishes it.
void TypingColouring::noteTyped(TextRange typed)
{
    if (!m_state.scriptTools || !m_state.takesColour())
        return;
    const bool splits = m_document.Text(typed).starts_with('\r');
    const bool atLineEnd = m_document.GetLineFromChar(typed.end) != m_document.GetLineFromChar(typed.end + 1)
        || typed.end == m_document.Length();
    if (splits && atLineEnd)
        return;
    if (!splits || m_document.NextUnfinished({typed.start, typed.start}) != -1)
        m_document.SetUnfinished(typed.end, true);
}

void TypingColouring::clicked()
{
    if (!m_state.scriptTools || !m_state.takesColour())
        return;
    const TextRange all{0, m_document.Length()};
    for (auto at = m_document.NextUnfinished(all); at != -1; at = m_document.NextUnfinished(all)) {
        const auto line = linesOf(m_document, {at, at});
        recolourRegion(m_document, line, m_state.codeColour);
        m_document.FinishLines(line);
    }
}

void TypingColouring::caretPlaced()
{
    if (m_state.takesColour())
        m_document.SetTypingColor(colourAroundCaret());
}

/// The colour of an open tag before the caret, else black.
Colour TypingColouring::colourAroundCaret() const
{
    const auto caret = m_document.SelStart();
    if (m_state.scriptTools || caret == 0 || m_document.Text({caret - 1, caret}) == ">")
        return colours::black;
    return m_document.ColourAt(caret - 1) == m_state.codeColour ? m_state.codeColour : colours::black;
}

} // namespace kevra
