// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/messages_qt.h"

#include "desktop/text_qt.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QMessageBox>

namespace kevra {

namespace {

struct ButtonSet {
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton initial;
    QMessageBox::StandardButton escape;
};

ButtonSet buttonSet(Buttons buttons)
{
    switch (buttons) {
    case Buttons::OkCancel:
        return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok, QMessageBox::Cancel};
    case Buttons::YesNo:
        return {QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, QMessageBox::No};
    case Buttons::YesNoCancel:
        return {
            QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes, QMessageBox::Cancel};
    case Buttons::Ok:
        break;
    }
    return {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
}

QMessageBox::Icon iconOf(Icon icon)
{
    switch (icon) {
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

Answer answerOf(int button)
{
    switch (button) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Cancel:
        return Answer::Cancel;
    default:
        return Answer::Ok;
    }
}

/// Makes the box wide enough for its title and the window manager's buttons.
void widenForTitle(QMessageBox &box)
{
    constexpr int titleButtons = 130;
    auto bold = box.font();
    bold.setBold(true);
    const int width = QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + titleButtons;
    auto *rows = qobject_cast<QGridLayout *>(box.layout());
    if (rows)
        rows->addItem(new QSpacerItem(width, 0), rows->rowCount(), 0, 1, rows->columnCount());
}

} // namespace

Answer MessagesQt::show(const Message &message)
{
    QMessageBox box(QApplication::activeWindow());
    const auto set = buttonSet(message.buttons);
    box.setWindowTitle(QString::fromStdString(message.title));
    // Plain text: a path or a search text may look like markup.
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(message.text));
    if (!message.details.empty())
        box.setDetailedText(pathText(message.details));
    box.setIcon(iconOf(message.icon));
    box.setStandardButtons(set.buttons);
    box.setDefaultButton(set.initial);
    box.setEscapeButton(set.escape);
    widenForTitle(box);
    return answerOf(box.exec());
}

} // namespace kevra
