// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/clipboard_qt.h"

#include "desktop/text_qt.h"
#include "encoding/line_ends.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

namespace kevra {

std::string ClipboardQt::readText() const
{
    return toCrLf(QGuiApplication::clipboard()->text().toStdString());
}

void ClipboardQt::clear()
{
    QGuiApplication::clipboard()->clear();
}

void ClipboardQt::setText(std::string_view text)
{
    auto content = textOf(text);
    QGuiApplication::clipboard()->setText(content.replace("\r\n", "\n"));
}

} // namespace kevra
