// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/printing_qt.h"

#include "editor/editor_control_qt.h"

#include <QtGui/QPainter>
#include <QtPrintSupport/QPrintDialog>
#include <QtPrintSupport/QPrinter>

#include <limits>

namespace kevra {

namespace {

constexpr qreal margin = 15; ///< millimetres

struct Pages {
    int first = 1;
    int last = std::numeric_limits<int>::max();
};

Pages selectedPages(const QPrinter &printer)
{
    if (printer.printRange() != QPrinter::PageRange)
        return {};
    return {printer.fromPage(), printer.toPage()};
}

} // namespace

bool PrintingQt::printDocument()
{
    QPrinter printer(QPrinter::HighResolution);
    // Before the dialog, where the user may choose others.
    printer.setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);
    QPrintDialog dialog(&printer, &m_control);
    dialog.setWindowTitle("Print The Editor Text");
    if (dialog.exec() != QDialog::Accepted)
        return false;
    const auto selection = m_control.Selection();
    return print(printer, selection.empty() ? TextRange{0, m_control.TextLength()} : selection);
}

bool PrintingQt::print(QPrinter &printer, TextRange range)
{
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    m_control.paintAll();
    m_control.SendScintilla(QsciScintillaBase::SCI_SETPRINTWRAPMODE, QsciScintillaBase::SC_WRAP_WORD);
    m_control.SendScintilla(QsciScintillaBase::SCI_SETPRINTCOLOURMODE, QsciScintillaBase::SC_PRINT_NORMAL);
    const QRect page(QPoint(), printer.pageLayout().paintRectPixels(printer.resolution()).size());
    auto from = static_cast<long>(m_control.breaks().toControl(range.start));
    const auto end = static_cast<long>(m_control.breaks().toControl(range.end));
    const auto pages = selectedPages(printer);
    for (int number = 1; from < end && number <= pages.last; ++number) {
        const bool drawn = number >= pages.first;
        if (drawn && number > pages.first && !printer.newPage())
            return false;
        const auto next = m_control.SendScintilla(
            QsciScintillaBase::SCI_FORMATRANGE, static_cast<unsigned long>(drawn), &painter, page, from, end);
        if (next <= from)
            break;
        from = next;
    }
    return painter.end() && printer.printerState() != QPrinter::Error;
}

} // namespace kevra
