// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "images/viewer_rules.h"

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

namespace kevra {

/// The control `piclarge`: a picture at its natural size, one of its pixels per pixel of the window.
class PictureView : public QWidget {
    Q_OBJECT

public:
    explicit PictureView(QWidget *parent);

    void setPicture(QImage picture);
    [[nodiscard]] const QImage &picture() const { return m_picture; }

signals:
    /// In the picture's own pixels, independent of the scale of the screen.
    void clicked(int x, int y);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    QImage m_picture;
};

/// The window `fbitmap`, which exists as long as the program: closing it only emits closeRequested().
class ImageViewerWindow : public QWidget {
    Q_OBJECT

public:
    explicit ImageViewerWindow(QWidget *parent = nullptr);

    [[nodiscard]] PictureView &picture() { return *m_picture; }
    /// Shows the window in the upper right corner of `room` (in screen coordinates), where there is least
    /// text; or where the user has moved it, if it is completely on the screen there.
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
