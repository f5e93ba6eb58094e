// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/message_box_reference_window.h"

#include "widgets/named_qt.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace kevra {

namespace {

enum class Style { Title, Heading, Entry };

struct CardLine {
    Style style;
    const char *text;
};

constexpr CardLine card[] = {
    {Style::Title, "MESSAGE BOX CONSTANTS"},
    {Style::Heading, "BUTTONS TO SHOW :"},
    {Style::Entry, "0 - OK"},
    {Style::Entry, "1 - OK, CANCEL"},
    {Style::Entry, "2 - ABORT, RETRY, IGNORE"},
    {Style::Entry, "3 - YES, NO, CANCEL"},
    {Style::Entry, "4 - YES, NO"},
    {Style::Entry, "5 - RETRY, CANCEL"},
    {Style::Heading, "MESSAGE BOX STYLE :"},
    {Style::Entry, "X (error)    16"},
    {Style::Entry, "? (question)    32"},
    {Style::Entry, "! (exclamation)    48"},
    {Style::Entry, "i (information)     64"},
    {Style::Entry, "Focus on 2nd button - 256"},
    {Style::Entry, "Focus on 3nd button - 512"},
    {Style::Entry, "Msgbox stay on top - 4096"},
    {Style::Heading, "RESPONSE CODES :"},
    {Style::Entry, "1 - OK"},
    {Style::Entry, "2 - CANCEL"},
    {Style::Entry, "3 - ABORT"},
    {Style::Entry, "4 - RETRY"},
    {Style::Entry, "5 - IGNORE"},
    {Style::Entry, "6 - YES"},
    {Style::Entry, "7 - NO"},
};

QLabel *labelFor(const CardLine &line, QWidget *parent)
{
    auto *label = new QLabel(line.text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto font = label->font();
    font.setBold(line.style != Style::Entry);
    if (line.style == Style::Title) {
        font.setPointSizeF(font.pointSizeF() * 1.2);
        label->setAlignment(Qt::AlignCenter);
    } else {
        label->setContentsMargins(line.style == Style::Heading ? 0 : 16, 0, 0, 0);
    }
    label->setFont(font);
    return label;
}

} // namespace

MessageBoxReferenceWindow::MessageBoxReferenceWindow(QWidget *parent)
    : QDialog(parent)
{
    setObjectName("fmsgref");
    setWindowTitle("Message Box Reference");
    auto *column = new QVBoxLayout(this);
    column->setSpacing(2);
    // The card is narrower than its title with the buttons of the frame beside it.
    column->addStrut(fontMetrics().horizontalAdvance(windowTitle()) + 160);
    for (const auto &line : card) {
        if (line.style == Style::Heading)
            column->addSpacing(8);
        column->addWidget(labelFor(line, this));
    }
    column->addSpacing(10);
    auto *close = named<QPushButton>("bclose", this);
    close->setText("CLOSE");
    close->setToolTip("Close this card");
    close->setDefault(true);
    column->addWidget(close, 0, Qt::AlignHCenter);
    column->setSizeConstraint(QLayout::SetFixedSize);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
}

} // namespace kevra
