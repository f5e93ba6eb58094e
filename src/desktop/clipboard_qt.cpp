// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/clipboard_qt.h"

#include "desktop/text_qt.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

namespace kevra {

std::string ClipboardQt::text() const
{
    auto text = QGuiApplication::clipboard()->text();
    text.replace("\r\n", "\n").replace(u'\r', u'\n').replace(u'\n', "\r\n");
    return text.toStdString();
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
