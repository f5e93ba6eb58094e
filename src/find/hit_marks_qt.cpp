// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/hit_marks_qt.h"

#include "find/hit_finder.h"

#include <QtCore/QEvent>

#include <algorithm>
#include <chrono>

namespace kevra {
namespace {

using Sci = QsciScintillaBase;

constexpr std::chrono::milliseconds soon{30};
constexpr unsigned long indicator = 20; ///< of those a program may use, none that the control itself does
constexpr long amber = 0x30B0FF; ///< blue in the high byte
constexpr long fillAlpha = 90;
constexpr long outlineAlpha = 200;

} // namespace

HitMarks::HitMarks(EditorControl &document, std::function<std::optional<FindRequest>()> wanted)
    : m_document(document)
    , m_wanted(std::move(wanted))
{
    document.SendScintilla(Sci::SCI_INDICSETSTYLE, indicator, static_cast<long>(Sci::INDIC_STRAIGHTBOX));
    document.SendScintilla(Sci::SCI_INDICSETFORE, indicator, amber);
    document.SendScintilla(Sci::SCI_INDICSETALPHA, indicator, fillAlpha);
    document.SendScintilla(Sci::SCI_INDICSETOUTLINEALPHA, indicator, outlineAlpha);
    document.SendScintilla(Sci::SCI_INDICSETUNDER, indicator, 1L);
    m_soon.setSingleShot(true);
    m_soon.setInterval(soon);
    connect(&m_soon, &QTimer::timeout, this, [this] { mark(); });
    connect(&document, &EditorControl::changed, this, [this] { refresh(); });
    connect(&document, &EditorControl::firstVisibleLineChanged, this, [this] { refresh(); });
    document.viewport()->installEventFilter(this);
}

void HitMarks::refresh()
{
    if (!m_soon.isActive() && (m_marked || m_wanted()))
        m_soon.start();
}

bool HitMarks::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        refresh();
    return QObject::eventFilter(watched, event);
}

void HitMarks::mark()
{
    m_document.SendScintilla(Sci::SCI_SETINDICATORCURRENT, indicator);
    m_document.SendScintilla(Sci::SCI_INDICATORCLEARRANGE, 0UL,
        static_cast<long>(m_document.controlPosition(m_document.Length())));
    const auto request = m_wanted();
    m_marked = request && !request->text.empty();
    if (!m_marked)
        return;
    const auto part = m_document.textInView();
    const std::string text(m_document.Text(part));
    for (const auto &hit : HitFinder(*request).all(text)) {
        const auto start = m_document.controlPosition(part.start + hit.start);
        const auto end = m_document.controlPosition(part.start + hit.end);
        m_document.SendScintilla(
            Sci::SCI_INDICATORFILLRANGE, static_cast<unsigned long>(start), static_cast<long>(end - start));
    }
}

} // namespace kevra
