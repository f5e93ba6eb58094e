// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/hit_marks_qt.h"

#include "find/hit_finder.h"

#include <utility>

namespace kevra {
namespace {

using Sci = QsciScintillaBase;

constexpr unsigned long indicator = 20; ///< in the range for applications and not used by the control
constexpr long amber = 0x30B0FF; ///< blue in the high byte
constexpr long fillAlpha = 90;
constexpr long outlineAlpha = 200;

} // namespace

HitMarks::HitMarks(EditorControl &control, std::function<std::optional<FindRequest>()> currentRequest)
    : MarksInView(control, {indicator})
    , m_currentRequest(std::move(currentRequest))
{
    control.SendScintilla(Sci::SCI_INDICSETSTYLE, indicator, static_cast<long>(Sci::INDIC_STRAIGHTBOX));
    control.SendScintilla(Sci::SCI_INDICSETFORE, indicator, amber);
    control.SendScintilla(Sci::SCI_INDICSETALPHA, indicator, fillAlpha);
    control.SendScintilla(Sci::SCI_INDICSETOUTLINEALPHA, indicator, outlineAlpha);
    control.SendScintilla(Sci::SCI_INDICSETUNDER, indicator, 1L);
}

std::vector<MarksInView::Mark> HitMarks::marksIn(TextRange view) const
{
    std::vector<Mark> marks;
    const auto request = m_currentRequest();
    if (!request || request->text.empty())
        return marks;
    const std::string text(control().Text(view));
    for (const auto &hit : HitFinder(*request).all(text))
        marks.push_back({{view.start + hit.start, view.start + hit.end}, indicator});
    return marks;
}

} // namespace kevra
