// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/information_window.h"

#include "app/svg_icon_qt.h"
#include "widgets/named_qt.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QTextBrowser>
#include <QtWidgets/QVBoxLayout>

namespace kevra {

namespace {

constexpr const char *notices[] = {
    "WELCOME TO KEVRA",
    "THIS WINDOW WILL SHOW ONLY AT FIRST STARTUP",
    "IN THE FUTURE YOU CAN ACCESS IT THROUGH THE 'ABOUT' ITEM ON THE MENU TOOLBAR",
};

constexpr const char *text = R"(<p><b>KEVRA &nbsp; version 2.85</b></p>
<p>KEVRA is an editor for people who write web pages and Windows scripts by hand. It colors the tags of a page
and the keywords of a script while you type, and inserts ready-made pieces of both at the press of a button.</p>
<p>A page can be looked at as a browser shows it, without being saved first. A script can be checked for the
usual mistakes: blocks that are not closed, a missing quotation mark, a method without its object.</p>
<p>An image viewer writes image tags with the right size, the color finder writes color codes, and the clipping
pad keeps pieces of text at hand. What you have typed is kept safe, whatever happens to the program.</p>
<p>KEVRA is free software under the GNU General Public License, version 3 or later.</p>)";

} // namespace

InformationWindow::InformationWindow(QWidget *parent)
    : QDialog(parent)
{
    setObjectName("faboutkevra");
    setWindowTitle("KEVRA information");
    resize(640, 400);
}

void InformationWindow::fill()
{
    auto *column = new QVBoxLayout(this);
    for (int i = 0; const char *notice : notices) {
        auto *label = new QLabel(notice, this);
        label->setObjectName(QString("lnotice%1").arg(++i));
        label->setAlignment(Qt::AlignCenter);
        label->setWordWrap(true);
        auto font = label->font();
        font.setBold(true);
        label->setFont(font);
        label->hide();
        column->addWidget(label);
        m_notices.append(label);
    }
    auto *page = named<QTextBrowser>("rtabout", this, "About KEVRA");
    page->setHtml(text);
    column->addWidget(page);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
}

void InformationWindow::showEvent(QShowEvent *event)
{
    // Deferred, since the window is rarely shown.
    if (!layout())
        fill();
    QDialog::showEvent(event);
}

void InformationWindow::showFirstStartNotices()
{
    show();
    for (auto *notice : m_notices)
        notice->show();
}

void InformationWindow::comeForward()
{
    const auto area = parentWidget()->geometry();
    move(area.center() - QRect({}, frameGeometry().size()).center());
    raise();
    activateWindow();
}

void InformationWindow::done(int result)
{
    for (auto *notice : m_notices)
        notice->hide();
    QDialog::done(result);
}

} // namespace kevra
