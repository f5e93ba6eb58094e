// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/line_number_column_qt.h"

#include "app/line_numbers.h"
#include "editor/control_layout_qt.h"
#include "editor/editor_control_qt.h"

#include <QtCore/QEvent>
#include <QtCore/QScopedValueRollback>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>

#include <algorithm>

namespace kevra {

namespace {

constexpr int fewestNumbers = 199;
constexpr int cycle = 100; ///< after so many lines the numbers start again
/// A longer document has this many numbers, moved to the part that is shown, so that a large script does not
/// need as much memory for its numbers as for its text.
constexpr int mostNumbers = 100 * cycle;
constexpr Colour grey{0xA8A8A8};

} // namespace

LineNumberColumn::LineNumberColumn(EditorControl &control, EditorControl &column)
    : QObject(&column)
    , m_control(control)
    , m_column(column)
{
    column.setReadOnly(true);
    column.setFocusPolicy(Qt::NoFocus);
    column.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    column.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The document can scroll further than the column because of its horizontal scroll bar.
    column.SendScintilla(QsciScintillaBase::SCI_SETENDATLASTLINE, 0UL);
    column.SendScintilla(QsciScintillaBase::SCI_ANNOTATIONSETVISIBLE,
        static_cast<unsigned long>(QsciScintillaBase::ANNOTATION_STANDARD));
    column.SendScintilla(QsciScintillaBase::SCI_SETCARETSTYLE, 0UL);
    column.viewport()->setCursor(Qt::ArrowCursor);
    column.viewport()->installEventFilter(this);
    column.installEventFilter(this);
    connect(&control, &EditorControl::firstVisibleLineChanged, this, &LineNumberColumn::align);
    connect(&control, &QsciScintillaBase::SCN_PAINTED, this, &LineNumberColumn::align);
    connect(&column, &EditorControl::firstVisibleLineChanged, this, &LineNumberColumn::align);
    connect(&control, &QsciScintillaBase::SCN_ZOOM, this, &LineNumberColumn::followZoom);
}

void LineNumberColumn::align()
{
    if (!m_column.isVisible() || m_aligning)
        return;
    const QScopedValueRollback guard(m_aligning, true);
    holdEnoughNumbers();
    followDocument();
}

void LineNumberColumn::holdEnoughNumbers()
{
    const auto lines = std::clamp<Offset>(m_control.lineCount(), fewestNumbers, mostNumbers);
    const auto needed = static_cast<int>(lines);
    if (needed <= m_numbers && m_numbers < 4 * needed)
        return;
    // More than needed, so that new lines do not renew them every time.
    m_numbers = needed == fewestNumbers ? needed : needed + needed / 16 + fewestNumbers;
    clearGaps();
    m_column.LoadText(lineNumbers(m_numbers));
    m_black = m_numbers;
}

void LineNumberColumn::greyBelow(Offset lines)
{
    const auto black = std::min<Offset>(lines, m_numbers);
    const auto before = std::exchange(m_black, black);
    if (black == before)
        return;
    const TextRange changed{m_column.lineRange(std::min(black, before)).start,
        m_column.lineRange(std::max(black, before) - 1).end};
    const ColourRun run{changed, black < before ? grey : colours::black};
    m_column.SetColours(changed, {&run, 1});
}

void LineNumberColumn::followZoom()
{
    const auto zoom = m_control.SendScintilla(QsciScintillaBase::SCI_GETZOOM);
    m_column.SendScintilla(QsciScintillaBase::SCI_SETZOOM, static_cast<unsigned long>(zoom));
    align();
}

Offset LineNumberColumn::firstLineHeld(Offset line) const
{
    return m_control.lineCount() > mostNumbers ? line - line % cycle : 0;
}

void LineNumberColumn::clearGaps()
{
    if (!m_gaps.empty())
        m_column.SendScintilla(QsciScintillaBase::SCI_ANNOTATIONCLEARALL);
    m_gaps.clear();
}

std::vector<LineNumberColumn::Gap> LineNumberColumn::visibleGaps(const Top &top) const
{
    std::vector<Gap> gaps;
    const ControlLayout layout(m_control);
    const auto rows = layout.rowsInView();
    const auto held = firstLineHeld(top.line);
    const auto end = std::min(top.line + rows + 1, m_control.lineCount());
    for (auto line = top.line; line < end; ++line) {
        auto extra = layout.rowCount(line) - 1;
        // Only as far as it is seen: Scintilla measures each row of an annotation, and takes 32767 at most.
        if (line == top.line)
            extra -= top.rowsAbove - heldAbove(top);
        if (extra > 0)
            gaps.emplace_back(line - held, std::min(extra, 2 * rows + 1));
    }
    return gaps;
}

Offset LineNumberColumn::heldAbove(const Top &top) const
{
    return std::min(top.rowsAbove, ControlLayout(m_control).rowsInView());
}

void LineNumberColumn::showGaps(const std::vector<Gap> &gaps)
{
    if (gaps == m_gaps)
        return;
    clearGaps();
    for (const auto &[line, extra] : gaps) {
        // An annotation of that many empty lines; an empty text would remove the annotation.
        const std::string note = " " + std::string(static_cast<std::size_t>(extra - 1), '\n');
        m_column.SendScintilla(
            QsciScintillaBase::SCI_ANNOTATIONSETTEXT, static_cast<unsigned long>(line), note.c_str());
    }
    m_gaps = gaps;
}

void LineNumberColumn::followDocument()
{
    const ControlLayout layout(m_control);
    const auto line = layout.topLine();
    const Top top{line, m_control.FirstVisibleLine() - layout.firstRow(line)};
    showGaps(
        m_control.RightMargin() == 0 || !m_control.breaks().empty() ? visibleGaps(top) : std::vector<Gap>());
    greyBelow(m_control.lineCount() - firstLineHeld(line));
    const auto wanted = ControlLayout(m_column).firstRow(line - firstLineHeld(line)) + heldAbove(top);
    if (m_column.FirstVisibleLine() != wanted)
        m_column.SetFirstVisibleLine(wanted);
}

bool LineNumberColumn::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_column.viewport() && event->type() == QEvent::Wheel)
        return QCoreApplication::sendEvent(m_control.viewport(), event);
    if (event->type() == QEvent::Show || event->type() == QEvent::Resize)
        QMetaObject::invokeMethod(this, &LineNumberColumn::align, Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

} // namespace kevra
