// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/marks_in_view_qt.h"
#include "editor/control_layout_qt.h"

#include <QtCore/QEvent>

#include <chrono>
#include <utility>

namespace kevra {
namespace {

using Sci = QsciScintillaBase;

constexpr std::chrono::milliseconds soon{30};

} // namespace

MarksInView::MarksInView(EditorControl &control, std::vector<unsigned long> indicators)
    : m_control(control)
    , m_indicators(std::move(indicators))
{
    m_soon.setSingleShot(true);
    m_soon.setInterval(soon);
    connect(&m_soon, &QTimer::timeout, this, [this] { draw(); });
    connect(&control, &EditorControl::changed, this, [this] { refresh(); });
    connect(&control, &EditorControl::firstVisibleLineChanged, this, [this] { refresh(); });
    control.viewport()->installEventFilter(this);
}

void MarksInView::refresh()
{
    if (!m_soon.isActive() && (m_drawn || hasMarks()))
        m_soon.start();
}

bool MarksInView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        refresh();
    return QObject::eventFilter(watched, event);
}

void MarksInView::clear()
{
    const auto length = static_cast<long>(m_control.breaks().toControl(m_control.TextLength()));
    for (const auto indicator : m_indicators) {
        m_control.SendScintilla(Sci::SCI_SETINDICATORCURRENT, indicator);
        m_control.SendScintilla(Sci::SCI_INDICATORCLEARRANGE, 0UL, length);
    }
}

void MarksInView::draw()
{
    clear();
    const auto marks = marksIn(ControlLayout(m_control).textInView());
    m_drawn = !marks.empty();
    for (const auto &mark : marks) {
        const auto start = m_control.breaks().toControl(mark.range.start);
        const auto end = m_control.breaks().toControl(mark.range.end);
        m_control.SendScintilla(Sci::SCI_SETINDICATORCURRENT, mark.indicator);
        m_control.SendScintilla(
            Sci::SCI_INDICATORFILLRANGE, static_cast<unsigned long>(start), static_cast<long>(end - start));
    }
}

} // namespace kevra
