// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/fitted_button_qt.h"

#include <QtWidgets/QStyleOption>
#include <QtWidgets/QStylePainter>

#include <algorithm>

namespace kevra {

namespace {

constexpr int leastPadding = 4; // device-independent pixels
constexpr int leastTextPercent = 60;
constexpr int shortText = 3; ///< characters; a caption no longer than that keeps its size

} // namespace

QFont fontFitting(const QFont &font, const QString &text, int room)
{
    const int wanted = QFontMetrics(font).horizontalAdvance(text);
    if (wanted <= room)
        return font;
    QFont smaller(font);
    smaller.setPixelSize(std::max(1, QFontInfo(font).pixelSize() * room / wanted));
    return smaller;
}

QSize leastSizeOf(const QAbstractButton &button)
{
    const auto metrics = button.fontMetrics();
    const int whole = metrics.horizontalAdvance(button.text());
    const int text
        = std::max(whole * leastTextPercent / 100, std::min(whole, shortText * metrics.averageCharWidth()));
    return {text + leastPadding, metrics.height() + leastPadding};
}

int roomForCaption(const QAbstractButton &button)
{
    return button.width() - leastPadding;
}

FittedButton::FittedButton(QWidget *parent)
    : QPushButton(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void FittedButton::paintEvent(QPaintEvent *)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    QStylePainter painter(this);
    painter.setFont(fontFitting(font(), text(), roomForCaption(*this)));
    painter.drawControl(QStyle::CE_PushButton, option);
}

} // namespace kevra
