// SPDX-License-Identifier: GPL-3.0-or-later
// Buttons that shrink their caption in a narrow window instead of cutting it off.
#pragma once

#include <QtWidgets/QPushButton>

namespace kevra {

/// The font, or a smaller one in which the text is at most `width` wide.
[[nodiscard]] QFont fontFitting(const QFont &font, const QString &text, int width);
/// The minimum size of a button, with smaller letters and less padding.
[[nodiscard]] QSize minimumSizeOf(const QAbstractButton &button);
/// The width available for the caption.
[[nodiscard]] int captionWidth(const QAbstractButton &button);

class FittedButton : public QPushButton {
public:
    explicit FittedButton(QWidget *parent);

    [[nodiscard]] QSize minimumSizeHint() const override { return minimumSizeOf(*this); }

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace kevra
