// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/find_bar_panel.h"

#include "widgets/named_qt.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <chrono>

namespace kevra {

namespace {
constexpr std::chrono::milliseconds pauseInTyping{250};
}

FindBar::FindBar(QWidget *parent)
    : QFrame(parent)
    , m_text(named<QLineEdit>("tfindpage", this, "Text to find on the page"))
    , m_found(named<QLabel>("lfoundpage", this))
{
    setObjectName("frfindpage");
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(m_text);
    const auto add = [&](const char *name, const char *caption, const char *tip, auto clicked) {
        auto *button = named<QPushButton>(name, this);
        button->setText(caption);
        button->setToolTip(tip);
        connect(button, &QPushButton::clicked, this, clicked);
        row->addWidget(button);
    };
    add("bpagenext", "FIND NEXT", "Find the next place on the page (Return)", [this] { find(false); });
    add("bpageback", "FIND BACK", "Find the place before (Shift+Return)", [this] { find(true); });
    row->addWidget(m_found, 1);
    add("bpageclose", "CLOSE", "Close this row (Escape)", [this] { close(); });
    m_text->setMinimumWidth(m_text->fontMetrics().averageCharWidth() * 30);
    m_text->installEventFilter(this);
    // A search that another one overtakes finds nothing.
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseInTyping);
    connect(&m_pause, &QTimer::timeout, this, [this] { find(false); });
    connect(m_text, &QLineEdit::textEdited, this, [this] { m_pause.start(); });
    hide();
}

void FindBar::open()
{
    show();
    m_text->setFocus();
    m_text->selectAll();
    find(false);
}

void FindBar::close()
{
    if (isHidden())
        return;
    hide();
    emit findAsked({}, false);
    emit closed();
}

void FindBar::showFound(int place, int places)
{
    if (places > 0)
        m_found->setText(QString("%1 of %2").arg(place).arg(places));
    else
        m_found->setText(m_text->text().isEmpty() ? "" : "Not found on this page");
}

void FindBar::find(bool backward)
{
    m_pause.stop();
    emit findAsked(m_text->text(), backward);
    if (m_text->text().isEmpty())
        m_found->clear();
}

bool FindBar::eventFilter(QObject *watched, QEvent *event)
{
    const auto type = event->type();
    if (type != QEvent::ShortcutOverride && type != QEvent::KeyPress)
        return QFrame::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    const bool isReturn = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (key->key() != Qt::Key_Escape && !isReturn)
        return QFrame::eventFilter(watched, event);
    // Before the window's own Escape, which leaves the page.
    event->accept();
    if (type == QEvent::KeyPress && isReturn)
        find(key->modifiers().testFlag(Qt::ShiftModifier));
    else if (type == QEvent::KeyPress)
        close();
    return true;
}

} // namespace kevra
