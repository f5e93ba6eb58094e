// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/fitted_button_qt.h"

#include <QtWidgets/QStyleOption>
#include <QtWidgets/QStylePainter>

#include <algorithm>

namespace kevra {

namespace {

constexpr int minimumPadding = 4; // device-independent pixels
constexpr int minimumTextPercent = 60;
constexpr int shortText = 3; ///< characters; a shorter caption keeps its size

} // namespace

QFont fontFitting(const QFont &font, const QString &text, int width)
{
    const int wanted = QFontMetrics(font).horizontalAdvance(text);
    if (wanted <= width)
        return font;
    QFont smaller(font);
    smaller.setPixelSize(std::max(1, QFontInfo(font).pixelSize() * width / wanted));
    return smaller;
}

QSize minimumSizeOf(const QAbstractButton &button)
{
    const auto metrics = button.fontMetrics();
    const int whole = metrics.horizontalAdvance(button.text());
    const int text
        = std::max(whole * minimumTextPercent / 100, std::min(whole, shortText * metrics.averageCharWidth()));
    return {text + minimumPadding, metrics.height() + minimumPadding};
}

int captionWidth(const QAbstractButton &button)
{
    return button.width() - minimumPadding;
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
    painter.setFont(fontFitting(font(), text(), captionWidth(*this)));
    painter.drawControl(QStyle::CE_PushButton, option);
}

} // namespace kevra
