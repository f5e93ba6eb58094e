// SPDX-License-Identifier: GPL-3.0-or-later
// What the user does to the control: clipboard, mouse, drag and drop; keys are in editor_keys_qt.cpp.
#include "desktop/text_qt.h"
#include "editor/control_layout_qt.h"
#include "editor/edit_scope_qt.h"
#include "editor/editor_control_qt.h"
#include "encoding/line_ends.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace kevra {
namespace {

bool isFiles(const QMimeData &data)
{
    return std::ranges::any_of(data.urls(), [](const QUrl &url) { return url.isLocalFile(); });
}

} // namespace

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

bool EditorControl::clipboardHasText() const
{
    const auto *mime = QGuiApplication::clipboard()->mimeData();
    return mime && canInsertFromMimeData(mime);
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
    command(EditKind::Cut, SCI_CUT);
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
    // Scintilla's own command stops at the first NUL.
    if (m_readOnly || !source || !canInsertFromMimeData(source))
        return;
    const auto text = toCrLf(source->text().toStdString());
    const EditScope scope(*this, kind);
    // Even if it equals the old text: the user's edit can be undone.
    replaceBytes(range, text);
    const auto end = range.start + std::ssize(text);
    Select({end, end});
}

void EditorControl::selectAll()
{
    Select({0, TextLength()});
}

void EditorControl::replaceAsUser(TextRange range, std::string_view text)
{
    if (m_readOnly)
        return;
    const EditScope scope(*this, EditKind::Paste);
    Replace(range, text);
}

void EditorControl::apply(const std::optional<LineEdit> &edit)
{
    if (m_readOnly || !edit)
        return;
    const EditScope scope(*this, EditKind::Command);
    replaceBytes(edit->range, edit->text);
    send(SCI_SETSEL, m_breaks.toControl(edit->after.anchor), m_breaks.toControl(edit->after.caret));
    send(SCI_CHOOSECARETX);
}

bool EditorControl::selectsLines() const
{
    const auto [anchor, caret] = anchorAndCaret();
    return GetLineFromChar(anchor) != GetLineFromChar(caret);
}

void EditorControl::unindentLines()
{
    apply(unindentedLines(*this, anchorAndCaret(), send(SCI_GETTABWIDTH)));
}

/// Scintilla's own command would also indent each part of a broken line.
void EditorControl::indentLines()
{
    if (m_breaks.empty())
        return void(send(SCI_TAB));
    if (m_readOnly)
        return;
    const UndoStep step(*this);
    const auto selection = Selection();
    const bool forward = anchorAndCaret().caret == selection.end;
    const auto first = GetLineFromChar(selection.start);
    auto last = GetLineFromChar(selection.end);
    if (lineRange(last).start == selection.end)
        --last;
    const auto by = send(SCI_GETTABWIDTH);
    for (auto line = last; line >= first; --line) {
        const auto place = controlLine(line);
        if (!lineRange(line).empty())
            send(SCI_SETLINEINDENTATION, place, send(SCI_GETLINEINDENTATION, place) + by);
    }
    const auto start = lineRange(first).start;
    const auto end = last + 1 < lineCount() ? lineRange(last + 1).start : TextLength();
    send(SCI_SETSEL, m_breaks.toControl(forward ? start : end), m_breaks.toControl(forward ? end : start));
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

void EditorControl::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton)
        return pasteSelectionAt(event->position().toPoint());
    if (event->button() == Qt::RightButton)
        placeCaretFor(event->position().toPoint());
    {
        const EditScope scope(*this, EditKind::Typing);
        QsciScintillaBase::mousePressEvent(event);
    }
    if (event->button() == Qt::LeftButton && m_typingHandler)
        m_typingHandler->clicked();
}

void EditorControl::pasteSelectionAt(QPoint place)
{
    const auto *clipboard = QGuiApplication::clipboard();
    setFocus(Qt::MouseFocusReason);
    if (!clipboard->supportsSelection())
        return;
    const auto position = ControlLayout(*this).positionAt(place);
    insertAsUser({position, position}, clipboard->mimeData(QClipboard::Selection), EditKind::Paste);
}

/// The context menu acts on the clicked position, or on the selection if that was clicked.
void EditorControl::placeCaretFor(QPoint place)
{
    const auto position = ControlLayout(*this).positionAt(place);
    const auto selection = Selection();
    if (!selection.empty() && position >= selection.start && position <= selection.end)
        return;
    const EditScope scope(*this, EditKind::Typing);
    send(SCI_SETEMPTYSELECTION, m_breaks.toControl(position));
    send(SCI_CHOOSECARETX);
}

void EditorControl::mouseMoveEvent(QMouseEvent *event)
{
    const auto before = anchorAndCaret();
    // Runs the drag; the drop is a command of its own.
    QsciScintillaBase::mouseMoveEvent(event);
    const EditScope scope(*this, EditKind::Drop);
    if (m_typingHandler && anchorAndCaret() != before)
        m_typingHandler->caretPlaced();
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
    auto position = ControlLayout(*this).positionAt(event->position().toPoint());
    const auto length = TextLength();
    send(SCI_BEGINUNDOACTION);
    const auto dragged = Selection();
    const bool moved = event->source() == this && event->dropAction() == Qt::MoveAction;
    // The text first, since removing it from its old place changes the drag's data.
    const auto text = toCrLf(event->mimeData()->text().toStdString());
    if (moved && position > dragged.start)
        position = std::max(dragged.start, position - dragged.length());
    if (moved)
        Replace(dragged, {});
    const auto before = moved ? length - dragged.length() : length;
    Replace({position, position}, text);
    send(SCI_ENDUNDOACTION);
    Select({position, position + TextLength() - before});
    // Typing continues here, and undo acts on this control.
    activateWindow();
    setFocus(Qt::OtherFocusReason);
}

bool EditorControl::canInsertFromMimeData(const QMimeData *source) const
{
    return source->hasText();
}

QMimeData *EditorControl::toMimeData(const QByteArray &, bool) const
{
    // The selection itself, since Scintilla's text stops at the first NUL.
    const auto text = Text(Selection());
    auto *mime = new QMimeData;
    // With the desktop's line breaks, which other programs expect.
    mime->setText(textOf(text).replace("\r\n", "\n"));
    return mime;
}

} // namespace kevra
