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
Offset charactersBefore(const EditorSurface &surface, Offset position)
{
    return characterCount(surface.Text({0, std::min(position, fewCharacters)}));
}

Offset previousCharacter(const EditorSurface &surface, Offset position)
{
    const auto start = std::max<Offset>(position - 4, 0);
    return start + characterBefore(surface.Text({start, position}), position - start);
}

} // namespace

TypingColouring::TypingColouring(
    EditedDocument document, MainView &view, std::function<void(TextRange)> checkFinishedLine)
    : m_surface(document.surface)
    , m_state(document.state)
    , m_view(view)
    , m_checkFinishedLine(std::move(checkFinishedLine))
{
}

void TypingColouring::keyTyped(char32_t character)
{
    if (!m_state.takesColour())
        return;
    if (m_state.scriptTools)
        m_surface.SetTypingColor(colours::black);
    else
        typeInPage(character);
}

void TypingColouring::typeInPage(char32_t character)
{
    const auto selection = m_surface.Selection();
    if (character == U'<') {
        paintTagOpenedAt(selection);
        m_surface.SetTypingColor(m_state.options.codeColour);
    } else if (character == U'>') {
        m_tagClosed = true;
        paintTagClosedAt(selection.start);
        m_surface.SetTypingColor(m_state.options.codeColour);
    } else if (std::exchange(m_tagClosed, false)) {
        typeAfterTag();
    }
}

/// The new "<" opens a tag if a ">" follows before any other "<".
void TypingColouring::paintTagOpenedAt(TextRange selection)
{
    const auto mark = firstOf(m_surface, "<>", selection.end, selection.end + keyReach);
    if (mark == -1 || m_surface.Text({mark, mark + 1}) != ">")
        return;
    const ColourRun tag{{selection.end, mark + 1}, m_state.options.codeColour};
    m_surface.SetColours(tag.range, {&tag, 1});
}

void TypingColouring::paintTagClosedAt(Offset caret)
{
    const auto before = charactersBefore(m_surface, caret);
    if (before < 2)
        return;
    const auto opening = lastOf(m_surface, '<', caret, std::max<Offset>(0, caret - keyReach));
    if (opening == -1)
        return;
    // A ">" among the two characters before the caret does not count as the end of the tag.
    const auto twoBack = previousCharacter(m_surface, previousCharacter(m_surface, caret));
    if (before >= 3 && lastOf(m_surface, '>', twoBack, opening) != -1)
        return;
    const ColourRun tag{{opening, caret}, m_state.options.codeColour};
    m_surface.SetColours(tag.range, {&tag, 1});
}

/// Text after a tag is black, unless a new tag starts immediately.
void TypingColouring::typeAfterTag()
{
    const auto caret = m_surface.SelStart();
    const auto start = charactersBefore(m_surface, caret) < 2
        ? Offset{0}
        : previousCharacter(m_surface, previousCharacter(m_surface, caret));
    if (m_surface.Text({start, start + 2}) != "><")
        m_surface.SetTypingColor(colours::black);
}

void TypingColouring::keyReleased(int key)
{
    if (key == keys::enter && m_state.scriptTools && m_surface.GetLineFromChar(m_surface.SelStart()) > 0)
        finishLine();
}

void TypingColouring::finishLine()
{
    // Automatic indentation may be between the line break and the caret.
    const auto caret = m_surface.SelStart();
    if (onLongLine(m_surface, {caret, caret}))
        return m_view.syncLineNumbers();
    const auto end = lineStart(m_surface, caret);
    if (onLongLine(m_surface, {end - 2, end - 2}))
        return m_view.syncLineNumbers();
    const TextRange line{lastOf(m_surface, '\n', end - 2) + 1, end};
    if (m_state.takesColour())
        recolourRegion(m_surface, line, m_state.options.codeColour);
    m_surface.FinishLines({line.start, line.end - 1});
    if (m_state.options.lineDebug && m_state.lineDebugOn)
        m_checkFinishedLine(line);
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
        recolourTags(m_surface, touched, m_state.options.codeColour);
    else if (kind == EditKind::Paste || kind == EditKind::Drop)
        recolourInserted({m_surface, m_state}, touched);
    else
        recolourScript(m_surface, touched, m_state.options.codeColour);
    m_surface.SetTypingColor(colourAroundCaret());
}

/// A line of a script stays black until Return or a click finishes it.
void TypingColouring::noteTyped(TextRange typed)
{
    if (!m_state.scriptTools || !m_state.takesColour())
        return;
    const bool splits = m_surface.Text(typed).starts_with('\r');
    const bool atLineEnd = m_surface.GetLineFromChar(typed.end) != m_surface.GetLineFromChar(typed.end + 1)
        || typed.end == m_surface.TextLength();
    if (splits && atLineEnd)
        return;
    if (!splits || m_surface.NextUnfinished({typed.start, typed.start}) != -1)
        m_surface.SetUnfinished(typed.end, true);
}

void TypingColouring::clicked()
{
    if (!m_state.scriptTools || !m_state.takesColour())
        return;
    const TextRange all{0, m_surface.TextLength()};
    for (auto at = m_surface.NextUnfinished(all); at != -1; at = m_surface.NextUnfinished(all)) {
        const auto line = linesOf(m_surface, {at, at});
        recolourRegion(m_surface, line, m_state.options.codeColour);
        m_surface.FinishLines(line);
    }
}

void TypingColouring::caretPlaced()
{
    if (m_state.takesColour())
        m_surface.SetTypingColor(colourAroundCaret());
}

/// The colour of an open tag before the caret, else black.
Colour TypingColouring::colourAroundCaret() const
{
    const auto caret = m_surface.SelStart();
    if (m_state.scriptTools || caret == 0 || m_surface.Text({caret - 1, caret}) == ">")
        return colours::black;
    return m_surface.ColourAt(caret - 1) == m_state.options.codeColour ? m_state.options.codeColour
                                                                       : colours::black;
}

} // namespace kevra
