// SPDX-License-Identifier: GPL-3.0-or-later
#include "findings/finding_marks_qt.h"

#include "desktop/text_qt.h"

#include <QtGui/QHelpEvent>
#include <QtWidgets/QToolTip>

#include <algorithm>
#include <array>
#include <iterator>

namespace kevra {
namespace {

using Sci = QsciScintillaBase;

constexpr std::size_t maxMarks = 500; ///< per view, for overlong lines; more cannot be distinguished

struct LevelMark {
    script::Level level;
    unsigned long indicator; ///< one of Scintilla's container indicators, not used elsewhere
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

std::vector<unsigned long> indicators()
{
    std::vector<unsigned long> all;
    std::ranges::transform(levelMarks, std::back_inserter(all), &LevelMark::indicator);
    return all;
}

} // namespace

Colour colourOf(script::Level level)
{
    return markOf(level).colour;
}

FindingMarks::FindingMarks(EditorControl &control, const FindingList &list)
    : MarksInView(control, indicators())
    , m_list(list)
{
    for (const auto &mark : levelMarks) {
        control.SendScintilla(Sci::SCI_INDICSETSTYLE, mark.indicator, static_cast<long>(Sci::INDIC_SQUIGGLE));
        control.SendScintilla(Sci::SCI_INDICSETFORE, mark.indicator, static_cast<long>(mark.colour.value));
    }
}

bool FindingMarks::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ToolTip && m_list.size() > 0)
        showTip(static_cast<QHelpEvent &>(*event));
    return MarksInView::eventFilter(watched, event);
}

/// The first line of a finding over several lines; one character for an empty finding.
TextRange FindingMarks::markedPart(TextRange range) const
{
    const auto line = control().lineRange(control().GetLineFromChar(range.start));
    const auto end = std::clamp(range.end, line.start, line.end);
    if (end > range.start)
        return {range.start, end};
    return range.start < line.end ? TextRange{range.start, range.start + 1}
                                  : TextRange{std::max(line.start, line.end - 1), line.end};
}

std::vector<MarksInView::Mark> FindingMarks::marksIn(TextRange view) const
{
    std::vector<Mark> marks;
    auto inView = m_list.touching(view);
    inView.resize(std::min(inView.size(), maxMarks));
    for (const auto index : inView) {
        const auto &finding = m_list.at(index);
        marks.push_back({markedPart(finding.range), markOf(finding.level()).indicator});
    }
    return marks;
}

void FindingMarks::showTip(const QHelpEvent &event)
{
    const auto close = control().SendScintilla(
        Sci::SCI_POSITIONFROMPOINTCLOSE, static_cast<unsigned long>(event.pos().x()), long{event.pos().y()});
    QStringList texts;
    if (close >= 0) {
        const auto position = control().breaks().toText(close);
        for (const auto index : m_list.touching({position, position})) {
            const auto part = markedPart(m_list.at(index).range);
            if (position >= part.start && position <= part.end)
                texts << textOf(m_list.at(index).what);
        }
    }
    QToolTip::showText(event.globalPos(), texts.join('\n'), control().viewport());
}

} // namespace kevra
