// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/printing_qt.h"

#include "editor/editor_control_qt.h"

#include <QtGui/QPainter>
#include <QtPrintSupport/QPrintDialog>
#include <QtPrintSupport/QPrinter>

namespace kevra {

namespace {

constexpr qreal marginMillimetres = 15;

} // namespace

bool PrintingQt::printDocument()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, &m_document);
    dialog.setWindowTitle("Print The Editor Text");
    if (dialog.exec() != QDialog::Accepted)
        return false;
    const auto selection = m_document.Selection();
    return print(printer, selection.empty() ? TextRange{0, m_document.Length()} : selection);
}

bool PrintingQt::print(QPrinter &printer, TextRange range)
{
    printer.setPageMargins(
        QMarginsF(marginMillimetres, marginMillimetres, marginMillimetres, marginMillimetres),
        QPageLayout::Millimeter);
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    m_document.SendScintilla(QsciScintillaBase::SCI_SETPRINTWRAPMODE, QsciScintillaBase::SC_WRAP_WORD);
    m_document.SendScintilla(QsciScintillaBase::SCI_SETPRINTCOLOURMODE, QsciScintillaBase::SC_PRINT_NORMAL);
    const QRect page(QPoint(), printer.pageLayout().paintRectPixels(printer.resolution()).size());
    auto from = static_cast<long>(range.start);
    const auto end = static_cast<long>(range.end);
    while (from < end) {
        const auto next
            = m_document.SendScintilla(QsciScintillaBase::SCI_FORMATRANGE, 1UL, &painter, page, from, end);
        if (next <= from)
            break;
        from = next;
        if (from < end && !printer.newPage())
            return false;
    }
    return painter.end() && printer.printerState() != QPrinter::Error;
}

} // namespace kevra
