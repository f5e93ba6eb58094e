// SPDX-License-Identifier: GPL-3.0-or-later
// Keys and input methods of the control: which key does what, and the typing that colours as it goes.
#include "editor/edit_scope_qt.h"
#include "editor/editor_control_qt.h"

#include <QInputMethodEvent>

#include <array>
#include <utility>

namespace kevra {
namespace {

using Sci = QsciScintillaBase;

struct KeyBinding {
    int key;
    int modifiers;
    int command;
};

constexpr int none = 0;
constexpr int shift = Sci::SCMOD_SHIFT;
constexpr int ctrl = Sci::SCMOD_CTRL;

// The usual keys for moving, selecting and deleting. Scintilla's own table has more, such as one that deletes
// a line with a key that means something else in other programs.
constexpr std::array keyBindings{
    KeyBinding{Sci::SCK_DOWN, none, Sci::SCI_LINEDOWN},
    KeyBinding{Sci::SCK_DOWN, shift, Sci::SCI_LINEDOWNEXTEND},
    KeyBinding{Sci::SCK_DOWN, ctrl, Sci::SCI_LINESCROLLDOWN},
    KeyBinding{Sci::SCK_UP, none, Sci::SCI_LINEUP},
    KeyBinding{Sci::SCK_UP, shift, Sci::SCI_LINEUPEXTEND},
    KeyBinding{Sci::SCK_UP, ctrl, Sci::SCI_LINESCROLLUP},
    KeyBinding{Sci::SCK_LEFT, none, Sci::SCI_CHARLEFT},
    KeyBinding{Sci::SCK_LEFT, shift, Sci::SCI_CHARLEFTEXTEND},
    KeyBinding{Sci::SCK_LEFT, ctrl, Sci::SCI_WORDLEFT},
    KeyBinding{Sci::SCK_LEFT, ctrl | shift, Sci::SCI_WORDLEFTEXTEND},
    KeyBinding{Sci::SCK_RIGHT, none, Sci::SCI_CHARRIGHT},
    KeyBinding{Sci::SCK_RIGHT, shift, Sci::SCI_CHARRIGHTEXTEND},
    KeyBinding{Sci::SCK_RIGHT, ctrl, Sci::SCI_WORDRIGHT},
    KeyBinding{Sci::SCK_RIGHT, ctrl | shift, Sci::SCI_WORDRIGHTEXTEND},
    KeyBinding{Sci::SCK_HOME, none, Sci::SCI_HOMEWRAP},
    KeyBinding{Sci::SCK_HOME, shift, Sci::SCI_HOMEWRAPEXTEND},
    KeyBinding{Sci::SCK_HOME, ctrl, Sci::SCI_DOCUMENTSTART},
    KeyBinding{Sci::SCK_HOME, ctrl | shift, Sci::SCI_DOCUMENTSTARTEXTEND},
    KeyBinding{Sci::SCK_END, none, Sci::SCI_LINEENDWRAP},
    KeyBinding{Sci::SCK_END, shift, Sci::SCI_LINEENDWRAPEXTEND},
    KeyBinding{Sci::SCK_END, ctrl, Sci::SCI_DOCUMENTEND},
    KeyBinding{Sci::SCK_END, ctrl | shift, Sci::SCI_DOCUMENTENDEXTEND},
    KeyBinding{Sci::SCK_PRIOR, none, Sci::SCI_PAGEUP},
    KeyBinding{Sci::SCK_PRIOR, shift, Sci::SCI_PAGEUPEXTEND},
    KeyBinding{Sci::SCK_NEXT, none, Sci::SCI_PAGEDOWN},
    KeyBinding{Sci::SCK_NEXT, shift, Sci::SCI_PAGEDOWNEXTEND},
    KeyBinding{Sci::SCK_DELETE, none, Sci::SCI_CLEAR},
    KeyBinding{Sci::SCK_DELETE, ctrl, Sci::SCI_DELWORDRIGHT},
    KeyBinding{Sci::SCK_BACK, none, Sci::SCI_DELETEBACK},
    KeyBinding{Sci::SCK_BACK, shift, Sci::SCI_DELETEBACK},
    KeyBinding{Sci::SCK_BACK, ctrl, Sci::SCI_DELWORDLEFT},
    KeyBinding{Sci::SCK_TAB, none, Sci::SCI_TAB},
    KeyBinding{Sci::SCK_RETURN, none, Sci::SCI_NEWLINE},
    KeyBinding{Sci::SCK_RETURN, shift, Sci::SCI_NEWLINE},
    KeyBinding{Sci::SCK_ADD, ctrl, Sci::SCI_ZOOMIN},
    KeyBinding{'+', ctrl, Sci::SCI_ZOOMIN},
    KeyBinding{'+', ctrl | shift, Sci::SCI_ZOOMIN},
    KeyBinding{'=', ctrl, Sci::SCI_ZOOMIN},
    KeyBinding{'-', ctrl, Sci::SCI_ZOOMOUT},
    KeyBinding{'0', ctrl, Sci::SCI_SETZOOM},
};

struct EditKey {
    QKeySequence::StandardKey key;
    void (EditorControl::*command)();
};

constexpr std::array editKeys{
    EditKey{QKeySequence::Undo, &EditorControl::undo},
    EditKey{QKeySequence::Redo, &EditorControl::redo},
    EditKey{QKeySequence::Cut, &EditorControl::cut},
    EditKey{QKeySequence::Copy, &EditorControl::copy},
    EditKey{QKeySequence::Paste, &EditorControl::paste},
    EditKey{QKeySequence::SelectAll, &EditorControl::selectAll},
};

/// With Control or Alt alone a key is a command; both together are AltGr on some keyboards.
bool isText(const QKeyEvent &event)
{
    const bool control = event.modifiers() & (Qt::ControlModifier | Qt::MetaModifier);
    const bool alt = event.modifiers() & Qt::AltModifier;
    return control == alt && !event.text().isEmpty() && event.text().front().isPrint();
}

} // namespace

void EditorControl::bindKeys()
{
    send(SCI_CLEARALLCMDKEYS);
    for (const auto &binding : keyBindings)
        send(SCI_ASSIGNCMDKEY, binding.key | binding.modifiers << 16, binding.command);
}

void EditorControl::keyPressEvent(QKeyEvent *event)
{
    for (const auto &key : editKeys) {
        if (event->matches(key.key)) {
            (this->*key.command)();
            return event->accept();
        }
    }
    const bool modified = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return modified ? event->ignore() : typeKey(*event, U'\r');
    case Qt::Key_Tab:
        if (!modified && selectsLines()) {
            const EditScope scope(*this, EditKind::Command);
            return indentLines();
        }
        return modified ? event->ignore() : typeKey(*event, U'\t');
    case Qt::Key_Backtab:
        return unindentLines();
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        return deleteByKey(*event);
    default:
        break;
    }
    if (isText(*event))
        return typeText(*event);
    moveByKey(*event);
}

void EditorControl::moveByKey(QKeyEvent &event)
{
    const EditScope scope(*this, EditKind::Typing);
    const auto before = anchorAndCaret();
    const bool sideways = event.key() == Qt::Key_Left || event.key() == Qt::Key_Right;
    // Without its text, since Scintilla would insert the letter of a menu key.
    QKeyEvent command(event.type(), event.key(), event.modifiers());
    QsciScintillaBase::keyPressEvent(&command);
    // Skips a break, which is not a step in the text.
    for (auto place = Offset{-1}; !m_breaks.empty() && sideways && anchorAndCaret() == before;) {
        if (place == std::exchange(place, send(SCI_GETCURRENTPOS)))
            break;
        QsciScintillaBase::keyPressEvent(&command);
    }
    event.setAccepted(command.isAccepted());
}

void EditorControl::typeKey(QKeyEvent &event, char32_t character)
{
    {
        const EditScope scope(*this, EditKind::Typing);
        beginStroke({Stroke::Action::Insert, strokeKind(character)}, event.timestamp());
        announceCharacter(character);
        if (character == U'\r')
            breakLine(event);
        else if (!m_breaks.empty() && !m_readOnly)
            sendBytes(SCI_REPLACESEL, 0, "\t"); // Scintilla's command would act on its own lines
        else
            QsciScintillaBase::keyPressEvent(&event);
    }
    // At once and not on key release, when the next key may already be pressed.
    if (character == U'\r' && m_typingHandler && !m_readOnly)
        m_typingHandler->keyReleased(keys::enter);
}

void EditorControl::breakLine(QKeyEvent &event)
{
    const auto indentation = m_keepIndentation ? indentationBefore(*this, SelStart()) : std::string();
    QsciScintillaBase::keyPressEvent(&event);
    if (!indentation.empty() && !m_readOnly)
        sendBytes(SCI_REPLACESEL, 0, indentation.c_str());
}

std::optional<Stroke> EditorControl::deletingStroke(const QKeyEvent &event) const
{
    if (!Selection().empty() || event.modifiers() & Qt::ControlModifier)
        return std::nullopt;
    const bool back = event.key() == Qt::Key_Backspace;
    const auto caret = SelStart();
    const auto byte = Text(back ? TextRange{caret - 1, caret} : TextRange{caret, caret + 1});
    return Stroke{back ? Stroke::Action::DeleteBack : Stroke::Action::DeleteForward,
        strokeKind(byte.empty() ? U' ' : static_cast<unsigned char>(byte.front()))};
}

void EditorControl::deleteByKey(QKeyEvent &event)
{
    {
        const EditScope scope(*this, EditKind::Delete);
        const auto length = TextLength();
        if (const auto stroke = deletingStroke(event)) {
            beginStroke(*stroke, event.timestamp());
            if (!m_breaks.empty())
                send(SCI_SETEMPTYSELECTION,
                    event.key() == Qt::Key_Delete ? m_breaks.toControl(SelStart())
                                                  : m_breaks.toControlBefore(SelStart()));
            QsciScintillaBase::keyPressEvent(&event);
            updateBreaksAfterKey(length);
        } else {
            const UndoStep step(*this);
            if (!m_breaks.empty() && Selection().empty())
                deleteWord(event.key());
            else
                QsciScintillaBase::keyPressEvent(&event);
            updateBreaksAfterKey(length);
        }
    }
    if (event.key() == Qt::Key_Delete && m_typingHandler && !m_readOnly)
        m_typingHandler->keyReleased(keys::del);
}

void EditorControl::updateBreaksAfterKey(Offset lengthBefore)
{
    settle();
    if (TextLength() != lengthBefore) // otherwise there is nothing to undo
        updateBreaksAt(SelStart());
}

/// Scintilla's own command may stop inside a break.
void EditorControl::deleteWord(int key)
{
    for (auto place = Offset{-1}; Selection().empty();) {
        if (place == std::exchange(place, send(SCI_GETCURRENTPOS)))
            return;
        send(key == Qt::Key_Delete ? SCI_WORDRIGHTEXTEND : SCI_WORDLEFTEXTEND);
    }
    leaveBreaks();
    send(SCI_CLEAR);
}

void EditorControl::typeText(const QKeyEvent &event)
{
    for (const char32_t character : event.text().toUcs4()) {
        const EditScope scope(*this, EditKind::Typing);
        beginStroke({Stroke::Action::Insert, strokeKind(character)}, event.timestamp());
        announceCharacter(character);
        QKeyEvent one(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUcs4(&character, 1));
        QsciScintillaBase::keyPressEvent(&one);
    }
}

void EditorControl::beginStroke(Stroke stroke, UndoSteps::Milliseconds time)
{
    if (m_readOnly || !m_undoSteps.begins(stroke, time))
        return;
    if (std::exchange(m_undoStepOpen, true))
        send(SCI_ENDUNDOACTION);
    send(SCI_BEGINUNDOACTION);
}

void EditorControl::endUndoStep()
{
    m_undoSteps.end();
    if (std::exchange(m_undoStepOpen, false))
        send(SCI_ENDUNDOACTION);
}

void EditorControl::announceCharacter(char32_t character)
{
    // An input method may commit several characters at once: settles the last one before the colour of the
    // next is chosen.
    settle();
    if (m_typingHandler && !m_readOnly)
        m_typingHandler->keyTyped(character);
}

void EditorControl::inputMethodEvent(QInputMethodEvent *event)
{
    const EditScope scope(*this, EditKind::Typing);
    const auto committed = event->commitString().toUcs4();
    const auto beginCommit = [this](char32_t character) {
        constexpr UndoSteps::Milliseconds unknown = 0;
        beginStroke({Stroke::Action::Insert, strokeKind(character)}, unknown);
    };
    // Scintilla removes provisional text by an undo of its own, which must not be inside an open step.
    if (m_composing || committed.empty())
        endUndoStep();
    else
        beginCommit(committed.front());
    // Removes the provisional text, so that the committed characters are announced without it.
    QInputMethodEvent nothing;
    QsciScintillaBase::inputMethodEvent(&nothing);
    if (event->replacementLength() > 0) {
        const auto from = send(SCI_POSITIONRELATIVE, send(SCI_GETCURRENTPOS), event->replacementStart());
        const auto to = send(SCI_POSITIONRELATIVE, from, event->replacementLength());
        const auto old = controlRange({m_breaks.toText(from), m_breaks.toText(to)});
        send(SCI_DELETERANGE, old.start, old.length());
    }
    for (const char32_t character : committed) {
        beginCommit(character);
        announceCharacter(character);
        QInputMethodEvent one;
        one.setCommitString(QString::fromUcs4(&character, 1));
        QsciScintillaBase::inputMethodEvent(&one);
    }
    m_composing = !event->preeditString().isEmpty();
    if (m_composing)
        endUndoStep();
    QInputMethodEvent composing(event->preeditString(), event->attributes());
    QsciScintillaBase::inputMethodEvent(&composing);
}

} // namespace kevra
