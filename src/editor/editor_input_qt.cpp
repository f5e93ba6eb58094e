// SPDX-License-Identifier: GPL-3.0-or-later
// What the user does to the control: keys, input methods, mouse, clipboard, drag and drop.
#include "editor/edit_scope_qt.h"
#include "editor/editor_control_qt.h"
#include "platform/text_qt.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QUrl>

#include <algorithm>
#include <array>

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

// Moving, selecting and deleting as every editor on the desktop has them. Scintilla's own table has a few
// more, which take a line away at a key that means something else elsewhere.
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

/// Text from elsewhere with the document's line breaks.
QByteArray withDocumentLineBreaks(const QByteArray &text)
{
    QByteArray out;
    out.reserve(text.size() + text.size() / 16);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char byte = text[i];
        if (byte == '\n' || byte == '\r') {
            out += "\r\n";
            if (byte == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
                ++i;
        } else {
            out += byte;
        }
    }
    return out;
}

/// Control or Alt alone make a command of a key; both together are the third level of some keyboards.
bool isText(const QKeyEvent &event)
{
    const bool control = event.modifiers() & (Qt::ControlModifier | Qt::MetaModifier);
    const bool alt = event.modifiers() & Qt::AltModifier;
    return control == alt && !event.text().isEmpty() && event.text().front().isPrint();
}

bool isFiles(const QMimeData &data)
{
    return std::ranges::any_of(data.urls(), [](const QUrl &url) { return url.isLocalFile(); });
}

} // namespace

void EditorControl::bindKeys()
{
    send(SCI_CLEARALLCMDKEYS);
    for (const auto &binding : keyBindings)
        send(SCI_ASSIGNCMDKEY, binding.key | binding.modifiers << 16, binding.command);
}

void EditorControl::command(EditKind kind, unsigned message)
{
    const EditScope scope(*this, kind);
    send(message);
}

bool EditorControl::canUndo() const
{
    return send(SCI_CANUNDO) != 0;
}

bool EditorControl::canRedo() const
{
    return send(SCI_CANREDO) != 0;
}

bool EditorControl::canPaste() const
{
    const auto *mime = QGuiApplication::clipboard()->mimeData();
    return !m_readOnly && mime && canInsertFromMimeData(mime);
}

void EditorControl::undo()
{
    command(EditKind::Undo, SCI_UNDO);
}

void EditorControl::redo()
{
    command(EditKind::Redo, SCI_REDO);
}

void EditorControl::cut()
{
    copy();
    if (!Selection().empty())
        command(EditKind::Cut, SCI_CLEAR);
}

void EditorControl::copy()
{
    if (!Selection().empty())
        QGuiApplication::clipboard()->setMimeData(toMimeData({}, false));
}

void EditorControl::paste()
{
    insertAsUser(Selection(), QGuiApplication::clipboard()->mimeData(), EditKind::Paste);
}

void EditorControl::insertAsUser(TextRange range, const QMimeData *source, EditKind kind)
{
    // Scintilla's own way ends at the first NUL.
    if (m_readOnly || !source || !canInsertFromMimeData(source))
        return;
    const auto text = withDocumentLineBreaks(source->text().toUtf8());
    const EditScope scope(*this, kind);
    Replace(range, {text.data(), static_cast<std::size_t>(text.size())});
}

void EditorControl::deleteForward()
{
    command(EditKind::Delete, SCI_CLEAR);
}

void EditorControl::selectAll()
{
    Select({0, Length()});
}

void EditorControl::replaceAsUser(TextRange range, std::string_view text)
{
    if (m_readOnly)
        return;
    const EditScope scope(*this, EditKind::Paste);
    Replace(range, text);
}

bool EditorControl::event(QEvent *event)
{
    if (!m_displayed && (event->type() == QEvent::KeyPress || event->type() == QEvent::InputMethod))
        return true;
    return QsciScintillaBase::event(event);
}

bool EditorControl::viewportEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        if (!m_displayed)
            return true;
        break;
    default:
        break;
    }
    return QsciScintillaBase::viewportEvent(event);
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
        return modified ? event->ignore() : typeKey(*event, U'\t');
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        return deleteByKey(*event);
    default:
        break;
    }
    if (isText(*event))
        return typeText(event->text());
    const EditScope scope(*this, EditKind::Typing);
    // Without its text: Scintilla would type the letter of a menu's key.
    QKeyEvent command(event->type(), event->key(), event->modifiers());
    QsciScintillaBase::keyPressEvent(&command);
    event->setAccepted(command.isAccepted());
}

void EditorControl::typeKey(QKeyEvent &event, char32_t character)
{
    {
        const EditScope scope(*this, EditKind::Typing);
        announceCharacter(character);
        QsciScintillaBase::keyPressEvent(&event);
    }
    // Told at once and not when the key comes up: a quick typist has the next key down by then.
    if (character == U'\r' && m_typingHandler && !m_readOnly)
        m_typingHandler->keyReleased(keys::enter);
}

void EditorControl::deleteByKey(QKeyEvent &event)
{
    {
        const EditScope scope(*this, EditKind::Delete);
        QsciScintillaBase::keyPressEvent(&event);
    }
    if (event.key() == Qt::Key_Delete && m_typingHandler && !m_readOnly)
        m_typingHandler->keyReleased(keys::del);
}

void EditorControl::typeText(const QString &text)
{
    for (const char32_t character : text.toUcs4()) {
        const EditScope scope(*this, EditKind::Typing);
        announceCharacter(character);
        QKeyEvent one(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUcs4(&character, 1));
        QsciScintillaBase::keyPressEvent(&one);
    }
}

void EditorControl::announceCharacter(char32_t character)
{
    if (m_typingHandler && !m_readOnly)
        m_typingHandler->keyTyped(character);
}

void EditorControl::inputMethodEvent(QInputMethodEvent *event)
{
    const EditScope scope(*this, EditKind::Typing);
    // Takes back what was composed so far, so that the characters to come are announced in the text without
    // it.
    QInputMethodEvent nothing;
    QsciScintillaBase::inputMethodEvent(&nothing);
    if (event->replacementLength() > 0) {
        const auto from = send(SCI_POSITIONRELATIVE, send(SCI_GETCURRENTPOS), event->replacementStart());
        const auto to = send(SCI_POSITIONRELATIVE, from, event->replacementLength());
        send(SCI_DELETERANGE, from, to - from);
    }
    for (const char32_t character : event->commitString().toUcs4()) {
        announceCharacter(character);
        QInputMethodEvent one;
        one.setCommitString(QString::fromUcs4(&character, 1));
        QsciScintillaBase::inputMethodEvent(&one);
    }
    QInputMethodEvent composing(event->preeditString(), event->attributes());
    QsciScintillaBase::inputMethodEvent(&composing);
}

void EditorControl::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton)
        return pasteSelectionAt(event->position().toPoint());
    const EditScope scope(*this, EditKind::Typing);
    QsciScintillaBase::mousePressEvent(event);
}

void EditorControl::pasteSelectionAt(QPoint place)
{
    const auto *clipboard = QGuiApplication::clipboard();
    setFocus(Qt::MouseFocusReason);
    if (!clipboard->supportsSelection())
        return;
    const auto position = positionAt(place);
    insertAsUser({position, position}, clipboard->mimeData(QClipboard::Selection), EditKind::Paste);
}

void EditorControl::mouseMoveEvent(QMouseEvent *event)
{
    // Dragging runs in here, with the drop as a command of its own.
    QsciScintillaBase::mouseMoveEvent(event);
    const EditScope scope(*this, EditKind::Drop);
}

void EditorControl::mouseReleaseEvent(QMouseEvent *event)
{
    const EditScope scope(*this, EditKind::Typing);
    QsciScintillaBase::mouseReleaseEvent(event);
}

void EditorControl::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier))
        return QsciScintillaBase::wheelEvent(event);
    if (const int turned = event->angleDelta().y(); turned != 0)
        send(turned > 0 ? SCI_ZOOMIN : SCI_ZOOMOUT);
    event->accept();
}

void EditorControl::dragEnterEvent(QDragEnterEvent *event)
{
    dragMoveEvent(event);
}

void EditorControl::dragMoveEvent(QDragMoveEvent *event)
{
    if (isFiles(*event->mimeData()))
        return event->ignore();
    QsciScintillaBase::dragMoveEvent(event);
}

void EditorControl::dropEvent(QDropEvent *event)
{
    if (isFiles(*event->mimeData()) || m_readOnly || !event->mimeData()->hasText())
        return event->ignore();
    event->acceptProposedAction();
    dragLeaveEvent(nullptr);
    const EditScope scope(*this, EditKind::Drop);
    auto position = positionAt(event->position().toPoint());
    const auto length = Length();
    send(SCI_BEGINUNDOACTION);
    const auto dragged = Selection();
    const bool moved = event->source() == this && event->dropAction() == Qt::MoveAction;
    // The text first, as taking it out of its old place changes what the drag carries.
    const auto text = withDocumentLineBreaks(event->mimeData()->text().toUtf8());
    if (moved && position > dragged.start)
        position = std::max(dragged.start, position - dragged.length());
    if (moved)
        Replace(dragged, {});
    const auto before = moved ? length - dragged.length() : length;
    Replace({position, position}, {text.data(), static_cast<std::size_t>(text.size())});
    send(SCI_ENDUNDOACTION);
    Select({position, position + Length() - before});
}

bool EditorControl::canInsertFromMimeData(const QMimeData *source) const
{
    return source->hasText();
}

QMimeData *EditorControl::toMimeData(const QByteArray &, bool) const
{
    // The selection itself: what Scintilla hands over ends at the first NUL.
    const auto text = Text(Selection());
    auto *mime = new QMimeData;
    // With the desktop's line breaks: elsewhere the document's show as marks or as empty lines.
    mime->setText(textOf(text).replace("\r\n", "\n"));
    return mime;
}

} // namespace kevra
