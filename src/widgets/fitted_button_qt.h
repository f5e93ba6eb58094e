// SPDX-License-Identifier: GPL-3.0-or-later
// Buttons whose captions stay whole in a window that is too narrow for them: half a caption says nothing.
#pragma once

#include <QtWidgets/QPushButton>

namespace kevra {

/// The font, or a smaller one in which the text is no wider than `room`.
[[nodiscard]] QFont fontFitting(const QFont &font, const QString &text, int room);
/// What a button asks for at least, in smaller letters and without its usual padding.
[[nodiscard]] QSize leastSizeOf(const QAbstractButton &button);
/// What the letters have of a button's width.
[[nodiscard]] int roomForCaption(const QAbstractButton &button);

class FittedButton : public QPushButton {
public:
    explicit FittedButton(QWidget *parent);

    [[nodiscard]] QSize minimumSizeHint() const override { return leastSizeOf(*this); }

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace kevra
