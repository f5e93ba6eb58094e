// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/accessible_control_qt.h"
#include "editor/control_layout_qt.h"

#include "desktop/text_qt.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace kevra {
namespace {

using Sci = QsciScintillaBase;

/// Longer changes, such as loading a file, are not announced in full.
constexpr Offset maxAnnouncedBytes = 1 << 20;

QAccessibleInterface *makeInterface(const QString &className, QObject *object)
{
    auto *control = className == QLatin1String(EditorControl::staticMetaObject.className())
        ? qobject_cast<EditorControl *>(object)
        : nullptr;
    return control ? new AccessibleControl(*control) : nullptr;
}

AccessibleControl *interfaceOf(EditorControl &control)
{
    return dynamic_cast<AccessibleControl *>(QAccessible::queryAccessibleInterface(&control));
}

} // namespace

AccessibleControl::AccessibleControl(EditorControl &control)
    : QAccessibleWidget(&control, QAccessible::EditableText)
    , m_control(control)
{
}

void AccessibleControl::install()
{
    QAccessible::installFactory(makeInterface);
}

void *AccessibleControl::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface *>(this);
    if (type == QAccessible::EditableTextInterface)
        return static_cast<QAccessibleEditableTextInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::State AccessibleControl::state() const
{
    auto state = QAccessibleWidget::state();
    state.multiLine = true;
    state.selectableText = true;
    state.readOnly = m_control.isReadOnly();
    state.editable = !m_control.isReadOnly();
    return state;
}

void AccessibleControl::countCharacters() const
{
    if (m_control.SendScintilla(Sci::SCI_GETLINECHARACTERINDEX) == Sci::SC_LINECHARACTERINDEX_NONE)
        m_control.SendScintilla(
            Sci::SCI_ALLOCATELINECHARACTERINDEX, static_cast<long>(Sci::SC_LINECHARACTERINDEX_UTF16));
}

int AccessibleControl::offsetOf(Offset position) const
{
    countCharacters();
    const auto place = m_control.breaks().toControl(std::clamp<Offset>(position, 0, m_control.TextLength()));
    const auto line = m_control.SendScintilla(Sci::SCI_LINEFROMPOSITION, static_cast<long>(place));
    const auto start = m_control.SendScintilla(Sci::SCI_POSITIONFROMLINE, line);
    return lineOffset(line)
        + static_cast<int>(m_control.SendScintilla(
            Sci::SCI_COUNTCODEUNITS, static_cast<unsigned long>(start), static_cast<long>(place)));
}

int AccessibleControl::lineOffset(long line) const
{
    const auto start = m_control.SendScintilla(Sci::SCI_POSITIONFROMLINE, line);
    // Each byte of a break counts as a character in Scintilla.
    return static_cast<int>(
        m_control.SendScintilla(Sci::SCI_INDEXPOSITIONFROMLINE, static_cast<unsigned long>(line),
            static_cast<long>(Sci::SC_LINECHARACTERINDEX_UTF16))
        - (start - m_control.breaks().toText(start)));
}

/// The last of Scintilla's lines that starts at or before an offset.
long AccessibleControl::lineAtOffset(int offset) const
{
    if (m_control.breaks().empty())
        return m_control.SendScintilla(Sci::SCI_LINEFROMINDEXPOSITION,
            static_cast<unsigned long>(std::max(offset, 0)),
            static_cast<long>(Sci::SC_LINECHARACTERINDEX_UTF16));
    long first = 0;
    for (auto last = m_control.SendScintilla(Sci::SCI_GETLINECOUNT); last - first > 1;) {
        const auto middle = first + (last - first) / 2;
        (lineOffset(middle) <= offset ? first : last) = middle;
    }
    return first;
}

Offset AccessibleControl::positionOf(int offset) const
{
    countCharacters();
    const auto line = lineAtOffset(offset);
    const auto start = m_control.SendScintilla(Sci::SCI_POSITIONFROMLINE, line);
    const auto place = m_control.SendScintilla(Sci::SCI_POSITIONRELATIVECODEUNITS,
        static_cast<unsigned long>(start), static_cast<long>(offset - lineOffset(line)));
    // Scintilla returns 0 past the end of the text.
    return offset >= characterCount() ? m_control.TextLength() : m_control.breaks().toText(place);
}

void AccessibleControl::selection(int index, int *start, int *end) const
{
    const auto selected = m_control.Selection();
    *start = *end = 0;
    if (index != 0 || selected.empty())
        return;
    *start = offsetOf(selected.start);
    *end = offsetOf(selected.end);
}

int AccessibleControl::selectionCount() const
{
    return m_control.Selection().empty() ? 0 : 1;
}

void AccessibleControl::addSelection(int start, int end)
{
    setSelection(0, start, end);
}

void AccessibleControl::removeSelection(int index)
{
    if (index == 0)
        setCursorPosition(cursorPosition());
}

void AccessibleControl::setSelection(int index, int start, int end)
{
    if (index == 0)
        m_control.Select({positionOf(start), positionOf(end)});
}

int AccessibleControl::cursorPosition() const
{
    return offsetOf(m_control.anchorAndCaret().caret);
}

void AccessibleControl::setCursorPosition(int offset)
{
    m_control.SetSelStart(positionOf(offset));
}

QString AccessibleControl::text(int start, int end) const
{
    return textOf(m_control.Text({positionOf(start), positionOf(end)}));
}

QString AccessibleControl::textBeforeOffset(
    int offset, QAccessible::TextBoundaryType type, int *start, int *end) const
{
    const auto here = rangeAround(resolved(offset), type);
    return report(here.first > 0 ? rangeAround(here.first - 1, type) : OffsetRange{-1, -1}, start, end);
}

QString AccessibleControl::textAfterOffset(
    int offset, QAccessible::TextBoundaryType type, int *start, int *end) const
{
    const auto here = rangeAround(resolved(offset), type);
    return report(
        here.second < characterCount() ? rangeAround(here.second, type) : OffsetRange{-1, -1}, start, end);
}

QString AccessibleControl::textAtOffset(
    int offset, QAccessible::TextBoundaryType type, int *start, int *end) const
{
    return report(rangeAround(resolved(offset), type), start, end);
}

int AccessibleControl::resolved(int offset) const
{
    // By convention -1 is the end of the text and -2 the caret.
    if (offset == -2)
        return cursorPosition();
    return offset < 0 ? characterCount() : std::min(offset, characterCount());
}

QString AccessibleControl::report(OffsetRange stretch, int *start, int *end) const
{
    std::tie(*start, *end) = stretch;
    return stretch.first < 0 ? QString() : text(stretch.first, stretch.second);
}

AccessibleControl::OffsetRange AccessibleControl::lineAround(int offset) const
{
    const auto line = ControlLayout(m_control).partAround(positionOf(offset));
    return {offsetOf(line.start), offsetOf(line.end)};
}

AccessibleControl::OffsetRange AccessibleControl::rangeAround(
    int offset, QAccessible::TextBoundaryType type) const
{
    if (type == QAccessible::NoBoundary)
        return {0, characterCount()};
    const auto line = lineAround(offset);
    if (type == QAccessible::LineBoundary || type == QAccessible::ParagraphBoundary)
        return line;
    const auto kind = type == QAccessible::CharBoundary ? QTextBoundaryFinder::Grapheme
        : type == QAccessible::WordBoundary             ? QTextBoundaryFinder::Word
                                                        : QTextBoundaryFinder::Sentence;
    const auto content = text(line.first, line.second);
    QTextBoundaryFinder finder(kind, content);
    finder.setPosition(offset - line.first);
    const auto from = finder.isAtBoundary() ? finder.position() : finder.toPreviousBoundary();
    finder.setPosition(offset - line.first);
    const auto to = finder.toNextBoundary();
    return {line.first + static_cast<int>(std::max<qsizetype>(from, 0)),
        line.first + static_cast<int>(to < 0 ? content.size() : to)};
}

int AccessibleControl::characterCount() const
{
    return offsetOf(m_control.TextLength());
}

QRect AccessibleControl::characterRect(int offset) const
{
    const auto position = positionOf(offset);
    const auto after = m_control.SendScintilla(
        Sci::SCI_POSITIONAFTER, static_cast<long>(m_control.breaks().toControl(position)));
    const auto bottom = ControlLayout(m_control).bottomLeft(position);
    const auto next = ControlLayout(m_control).bottomLeft(m_control.breaks().toText(after));
    const auto height = static_cast<int>(m_control.SendScintilla(Sci::SCI_TEXTHEIGHT, 0L));
    const auto width = next.y() == bottom.y() ? next.x() - bottom.x() : 1;
    return {m_control.viewport()->mapToGlobal(bottom - QPoint(0, height)), QSize(std::max(width, 1), height)};
}

int AccessibleControl::offsetAtPoint(const QPoint &point) const
{
    return offsetOf(ControlLayout(m_control).positionAt(m_control.viewport()->mapFromGlobal(point)));
}

void AccessibleControl::scrollToSubstring(int start, int end)
{
    m_control.SendScintilla(Sci::SCI_SCROLLRANGE,
        static_cast<unsigned long>(m_control.breaks().toControl(positionOf(end))),
        static_cast<long>(m_control.breaks().toControl(positionOf(start))));
}

QString AccessibleControl::attributes(int offset, int *start, int *end) const
{
    const auto position = positionOf(offset);
    const auto colour = m_control.ColourAt(position);
    const auto line = ControlLayout(m_control).partAround(position);
    TextRange same{position, std::min(position + 1, m_control.TextLength())};
    while (same.start > line.start && m_control.ColourAt(same.start - 1) == colour)
        --same.start;
    while (same.end < line.end && m_control.ColourAt(same.end) == colour)
        ++same.end;
    *start = offsetOf(same.start);
    *end = offsetOf(same.end);
    const auto font = m_control.Font();
    return QStringLiteral(
        "color:rgb(%1,%2,%3);background-color:rgb(255,255,255);font-family:\"%4\";font-size:%5pt;")
        .arg(QString::number(colour.red()), QString::number(colour.green()), QString::number(colour.blue()),
            QString::fromStdString(font.face), QString::number(font.size));
}

void AccessibleControl::deleteText(int start, int end)
{
    replaceText(start, end, {});
}

void AccessibleControl::insertText(int offset, const QString &text)
{
    replaceText(offset, offset, text);
}

void AccessibleControl::replaceText(int start, int end, const QString &text)
{
    m_control.replaceAsUser({positionOf(start), positionOf(end)}, text.toStdString());
}

AccessibilityNotifier::AccessibilityNotifier(EditorControl &control, Notify notify)
    : QObject(&control)
    , m_control(control)
    , m_notify(notify)
    , m_active(QAccessible::isActive())
{
    QAccessible::installActivationObserver(this);
    connect(&control, &EditorControl::aboutToRemove, this,
        [this](Offset position, Offset length) { keepRemoved(position, length); });
    connect(&control, &EditorControl::changed, this,
        [this](Offset position, Offset removed, Offset added) { textChanged(position, removed, added); });
    connect(&control, &EditorControl::caretMoved, this, [this] { caretMoved(); });
}

AccessibilityNotifier::~AccessibilityNotifier()
{
    QAccessible::removeActivationObserver(this);
}

void AccessibilityNotifier::keepRemoved(Offset position, Offset length)
{
    if (m_active)
        m_removed = textOf(m_control.Text({position, position + std::min(length, maxAnnouncedBytes)}));
}

void AccessibilityNotifier::textChanged(Offset position, Offset removed, Offset added)
{
    auto *interface = m_active ? interfaceOf(m_control) : nullptr;
    if (!interface)
        return;
    const auto offset = interface->offsetOf(position);
    if (removed > 0) {
        QAccessibleTextRemoveEvent event(&m_control, offset, std::exchange(m_removed, {}));
        m_notify(&event);
    }
    if (added > 0) {
        const auto end = position + std::min(added, maxAnnouncedBytes);
        QAccessibleTextInsertEvent event(&m_control, offset, textOf(m_control.Text({position, end})));
        m_notify(&event);
    }
}

void AccessibilityNotifier::caretMoved()
{
    auto *interface = m_active ? interfaceOf(m_control) : nullptr;
    if (!interface)
        return;
    QAccessibleTextCursorEvent caret(&m_control, interface->cursorPosition());
    m_notify(&caret);
    int start = 0;
    int end = 0;
    interface->selection(0, &start, &end);
    QAccessibleTextSelectionEvent selection(&m_control, start, end);
    m_notify(&selection);
}

} // namespace kevra
