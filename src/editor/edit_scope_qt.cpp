// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/edit_scope_qt.h"

#include "text/words.h"

#include <utility>

namespace kevra {

EditScope::EditScope(EditorControl &control, EditKind kind)
    : m_control(control)
    , m_outermost(control.m_changes.begin(kind))
{
    if (!m_outermost)
        return;
    m_control.leaveBreaks();
    m_selection = m_control.Selection();
    m_control.settle();
    if (kind != EditKind::Typing && kind != EditKind::Delete)
        m_control.endUndoStep();
}

EditScope::~EditScope()
{
    m_control.settle();
    if (!m_outermost)
        return;
    m_control.leaveBreaks();
    const auto kind = m_control.m_changes.kind();
    const auto touched = m_control.m_changes.end();
    if (touched && kind != EditKind::Program) {
        if (m_control.m_typingHandler)
            m_control.m_typingHandler->edited(*touched, kind);
        emit m_control.edited(*touched, kind);
    }
    if (!touched && m_control.Selection() != m_selection) {
        m_control.endUndoStep();
        if (kind != EditKind::Program && m_control.m_typingHandler)
            m_control.m_typingHandler->caretPlaced();
    }
    m_control.announce();
}

UndoStep::UndoStep(EditorControl &control)
    : m_control(control)
{
    m_control.endUndoStep();
    m_control.send(QsciScintillaBase::SCI_BEGINUNDOACTION);
}

UndoStep::~UndoStep()
{
    m_control.send(QsciScintillaBase::SCI_ENDUNDOACTION);
}

void EditorControl::beforeChange(int position, int type, int length)
{
    settle();
    const auto start = m_breaks.toText(position);
    m_characters.aboutToChange(start);
    if (type & SC_MOD_BEFOREINSERT) {
        paintUpTo(start);
        m_wholeKnown = false;
        m_changes.announce({start, 0, length});
        if (m_breaking || type & (SC_PERFORMED_UNDO | SC_PERFORMED_REDO))
            m_inserted = {position, position + length};
        else
            m_breaks.inserted(position, length);
    } else if (type & SC_MOD_BEFOREDELETE) {
        const TextRange old{start, m_breaks.toText(position + length)};
        paintUpTo(old.end);
        if (!old.empty())
            emit aboutToRemove(old.start, old.length());
        m_characters.aboutToRemove(old);
        m_wholeKnown = false;
        m_breaks.removed(position, length);
        m_changes.announce({old.start, old.length(), 0});
    }
}

Colour EditorControl::insertionColour() const
{
    const auto kind = m_changes.kind();
    return kind == EditKind::Program || kind == EditKind::Typing ? m_typing : colours::black;
}

void EditorControl::settle()
{
    const auto change = m_changes.settle(readInserted());
    if (!change)
        return;
    m_unpainted.shift(change->added - change->removed);
    const TextRange fresh{change->position, change->position + change->added};
    m_characters.inserted(fresh);
    if (!fresh.empty() && insertionColour() != colours::black)
        paint(fresh, styleOf(insertionColour()));
    emit changed(change->position, change->removed, change->added, m_changes.kind());
}

void EditorControl::announce()
{
    if (m_changes.inCommand() || !m_displayed)
        return;
    if (const auto now = anchorAndCaret(); now != std::exchange(m_knownSelection, now))
        emit caretMoved();
    if (const auto first = FirstVisibleLine(); first != std::exchange(m_knownFirstLine, first))
        emit firstVisibleLineChanged(first);
    if (const bool saved = isAtSavePoint(); saved != std::exchange(m_knownSavePoint, saved))
        emit savePointChanged(saved);
}

} // namespace kevra
