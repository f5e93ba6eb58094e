// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/marks_in_view_qt.h"

#include <QtCore/QEvent>

#include <chrono>
#include <utility>

namespace kevra {
namespace {

using Sci = QsciScintillaBase;

constexpr std::chrono::milliseconds soon{30};

} // namespace

MarksInView::MarksInView(EditorControl &document, std::vector<unsigned long> indicators)
    : m_document(document)
    , m_indicators(std::move(indicators))
{
    m_soon.setSingleShot(true);
    m_soon.setInterval(soon);
    connect(&m_soon, &QTimer::timeout, this, [this] { draw(); });
    connect(&document, &EditorControl::changed, this, [this] { refresh(); });
    connect(&document, &EditorControl::firstVisibleLineChanged, this, [this] { refresh(); });
    document.viewport()->installEventFilter(this);
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
    const auto length = static_cast<long>(m_document.controlPosition(m_document.Length()));
    for (const auto indicator : m_indicators) {
        m_document.SendScintilla(Sci::SCI_SETINDICATORCURRENT, indicator);
        m_document.SendScintilla(Sci::SCI_INDICATORCLEARRANGE, 0UL, length);
    }
}

void MarksInView::draw()
{
    clear();
    const auto marks = marksIn(m_document.textInView());
    m_drawn = !marks.empty();
    for (const auto &mark : marks) {
        const auto start = m_document.controlPosition(mark.range.start);
        const auto end = m_document.controlPosition(mark.range.end);
        m_document.SendScintilla(Sci::SCI_SETINDICATORCURRENT, mark.indicator);
        m_document.SendScintilla(
            Sci::SCI_INDICATORFILLRANGE, static_cast<unsigned long>(start), static_cast<long>(end - start));
    }
}

} // namespace kevra
