// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "images/viewer_rules.h"

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

namespace kevra {

/// The control `piclarge`: a picture in its natural size, one of its pixels to one of the window's.
class PictureView : public QWidget {
    Q_OBJECT

public:
    explicit PictureView(QWidget *parent);

    void setPicture(QImage picture);
    [[nodiscard]] const QImage &picture() const { return m_picture; }

signals:
    /// In the picture's own pixels, whatever the screen's scale.
    void clicked(int x, int y);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    QImage m_picture;
};

/// The window `fbitmap`. Closing it is refused and told; it stays as long as the program.
class ImageViewerWindow : public QWidget {
    Q_OBJECT

public:
    explicit ImageViewerWindow(QWidget *parent = nullptr);

    [[nodiscard]] PictureView &picture() { return *m_picture; }
    /// In the upper right corner of `room` (on the screen), where there is least text; where the user has
    /// moved it, as long as it does not reach off the screen there.
    void showFor(PictureSize size, const QRect &room);

signals:
    void closeRequested();

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void place(const QRect &room);

    PictureView *m_picture;
    QPoint m_placed;
};

} // namespace kevra
