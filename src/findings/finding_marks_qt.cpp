// SPDX-License-Identifier: GPL-3.0-or-later
#include "findings/finding_marks_qt.h"

#include "desktop/text_qt.h"

#include <QtGui/QHelpEvent>
#include <QtWidgets/QToolTip>

#include <algorithm>
#include <array>
#include <chrono>

namespace kevra {
namespace {

using Sci = QsciScintillaBase;

constexpr std::chrono::milliseconds soon{30};
constexpr std::size_t mostMarks = 500; ///< of a line that has no end, more than can be told apart

struct LevelMark {
    script::Level level;
    unsigned long indicator; ///< of those a program may use, none that others do
    Colour colour;
};

// The most serious last, so that it is drawn over the others.
constexpr std::array levelMarks{
    LevelMark{script::Level::Hint, 21, Colour{0x808080}},
    LevelMark{script::Level::Warning, 22, Colour{0x0082D6}},
    LevelMark{script::Level::Error, 23, Colour{0x2020E0}},
};

constexpr const LevelMark &markOf(script::Level level)
{
    return *std::ranges::find(levelMarks, level, &LevelMark::level);
}

} // namespace

Colour colourOf(script::Level level)
{
    return markOf(level).colour;
}

FindingMarks::FindingMarks(EditorControl &document, const FindingList &list)
    : m_document(document)
    , m_list(list)
{
    for (const auto &mark : levelMarks) {
        document.SendScintilla(
            Sci::SCI_INDICSETSTYLE, mark.indicator, static_cast<long>(Sci::INDIC_SQUIGGLE));
        document.SendScintilla(Sci::SCI_INDICSETFORE, mark.indicator, static_cast<long>(mark.colour.value));
    }
    m_soon.setSingleShot(true);
    m_soon.setInterval(soon);
    connect(&m_soon, &QTimer::timeout, this, [this] { mark(); });
    connect(&document, &EditorControl::changed, this, [this] { refresh(); });
    connect(&document, &EditorControl::firstVisibleLineChanged, this, [this] { refresh(); });
    document.viewport()->installEventFilter(this);
}

void FindingMarks::refresh()
{
    if (!m_soon.isActive() && (m_marked || m_list.size() > 0))
        m_soon.start();
}

bool FindingMarks::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        refresh();
    if (event->type() == QEvent::ToolTip && m_list.size() > 0)
        showTip(static_cast<QHelpEvent &>(*event));
    return QObject::eventFilter(watched, event);
}

/// Of a finding over several lines the first one, and one character where a finding is between two.
TextRange FindingMarks::markedPart(TextRange range) const
{
    const auto line = m_document.lineRange(m_document.GetLineFromChar(range.start));
    const auto end = std::clamp(range.end, line.start, line.end);
    if (end > range.start)
        return {range.start, end};
    return range.start < line.end ? TextRange{range.start, range.start + 1}
                                  : TextRange{std::max(line.start, line.end - 1), line.end};
}

void FindingMarks::clear()
{
    for (const auto &mark : levelMarks) {
        m_document.SendScintilla(Sci::SCI_SETINDICATORCURRENT, mark.indicator);
        m_document.SendScintilla(Sci::SCI_INDICATORCLEARRANGE, 0UL,
            static_cast<long>(m_document.controlPosition(m_document.Length())));
    }
}

void FindingMarks::mark()
{
    clear();
    auto inView = m_list.touching(m_document.textInView());
    inView.resize(std::min(inView.size(), mostMarks));
    m_marked = !inView.empty();
    for (const auto index : inView) {
        const auto &finding = m_list.at(index);
        const auto part = markedPart(finding.range);
        m_document.SendScintilla(Sci::SCI_SETINDICATORCURRENT, markOf(finding.level()).indicator);
        const auto start = m_document.controlPosition(part.start);
        const auto end = m_document.controlPosition(part.end);
        m_document.SendScintilla(
            Sci::SCI_INDICATORFILLRANGE, static_cast<unsigned long>(start), static_cast<long>(end - start));
    }
}

void FindingMarks::showTip(const QHelpEvent &event)
{
    const auto close = m_document.SendScintilla(
        Sci::SCI_POSITIONFROMPOINTCLOSE, static_cast<unsigned long>(event.pos().x()), long{event.pos().y()});
    QStringList texts;
    if (close >= 0) {
        const auto position = m_document.textPosition(close);
        for (const auto index : m_list.touching({position, position})) {
            const auto part = markedPart(m_list.at(index).range);
            if (position >= part.start && position <= part.end)
                texts << textOf(m_list.at(index).what);
        }
    }
    QToolTip::showText(event.globalPos(), texts.join('\n'), m_document.viewport());
}

} // namespace kevra
