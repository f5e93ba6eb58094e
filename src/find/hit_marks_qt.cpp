// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/hit_marks_qt.h"

#include "find/hit_finder.h"

#include <utility>

namespace kevra {
namespace {

using Sci = QsciScintillaBase;

constexpr unsigned long indicator = 20; ///< of those a program may use, none that the control itself does
constexpr long amber = 0x30B0FF; ///< blue in the high byte
constexpr long fillAlpha = 90;
constexpr long outlineAlpha = 200;

} // namespace

HitMarks::HitMarks(EditorControl &document, std::function<std::optional<FindRequest>()> wanted)
    : MarksInView(document, {indicator})
    , m_wanted(std::move(wanted))
{
    document.SendScintilla(Sci::SCI_INDICSETSTYLE, indicator, static_cast<long>(Sci::INDIC_STRAIGHTBOX));
    document.SendScintilla(Sci::SCI_INDICSETFORE, indicator, amber);
    document.SendScintilla(Sci::SCI_INDICSETALPHA, indicator, fillAlpha);
    document.SendScintilla(Sci::SCI_INDICSETOUTLINEALPHA, indicator, outlineAlpha);
    document.SendScintilla(Sci::SCI_INDICSETUNDER, indicator, 1L);
}

std::vector<MarksInView::Mark> HitMarks::marksIn(TextRange view) const
{
    std::vector<Mark> marks;
    const auto request = m_wanted();
    if (!request || request->text.empty())
        return marks;
    const std::string text(document().Text(view));
    for (const auto &hit : HitFinder(*request).all(text))
        marks.push_back({{view.start + hit.start, view.start + hit.end}, indicator});
    return marks;
}

} // namespace kevra
