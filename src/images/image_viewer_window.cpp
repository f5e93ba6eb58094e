// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/image_viewer_window.h"

#include "desktop/geometry.h"
#include "desktop/text_qt.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QPainter>
#include <QtGui/QScreen>

#include <algorithm>

namespace kevra {
namespace {

constexpr QSize minSize(220, 24); ///< large enough to read the caption and to close the window
constexpr int windowManagerSlack = 4; ///< pixels a window manager may be off
constexpr int frameWidth
    = 5; ///< assumed: the frame of the window manager is unknown until the window is shown

} // namespace

PictureView::PictureView(QWidget *parent)
    : QWidget(parent)
{
    setObjectName("piclarge");
    setAccessibleName("Image");
    setToolTip("Click to sample a color.");
    setCursor(Qt::CrossCursor);
}

void PictureView::setPicture(QImage picture)
{
    m_picture = std::move(picture);
    resize(m_picture.size());
    update();
}

void PictureView::paintEvent(QPaintEvent *)
{
    QPainter(this).drawImage(0, 0, m_picture);
}

void PictureView::mousePressEvent(QMouseEvent *event)
{
    const auto place = event->position();
    if (event->button() == Qt::LeftButton)
        emit clicked(static_cast<int>(place.x()), static_cast<int>(place.y()));
}

ImageViewerWindow::ImageViewerWindow(QWidget *parent)
    // As a dialog it stays above its parent.
    : QWidget(parent,
        Qt::Dialog | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint)
    , m_picture(new PictureView(this))
{
    setObjectName("fbitmap");
    setWindowTitle("VIEW IMAGE");
    setMinimumSize(minSize);
}

void ImageViewerWindow::showFor(PictureSize size, const QRect &room)
{
    const auto screenSize = screen()->size();
    const auto plan = viewerPlan(size, std::int64_t{screenSize.width()} * twipsPerPixel,
        std::int64_t{screenSize.height()} * twipsPerPixel);
    setWindowTitle(textOf(plan.caption));
    const auto height = std::max<std::int64_t>(plan.height - titleBarTwips, twipsPerPixel);
    resize(static_cast<int>(plan.width / twipsPerPixel), static_cast<int>(height / twipsPerPixel));
    m_picture->move(0, 0);
    const bool moved = (pos() - m_placed).manhattanLength() > windowManagerSlack;
    if (!isVisible() || !moved || !screen()->availableGeometry().contains(frameGeometry()))
        place(room);
    show();
}

void ImageViewerWindow::place(const QRect &room)
{
    constexpr int titleBar = titleBarTwips / twipsPerPixel;
    const auto area = screen()->availableGeometry();
    // Moved up rather than over the panel below `room`, which shows the sampled colour.
    const int top = std::min(room.top(), room.bottom() + 1 - titleBar - height() - frameWidth);
    m_placed = {std::max(area.left(), room.right() + 1 - width() - frameWidth), std::max(area.top(), top)};
    move(m_placed);
}

void ImageViewerWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    emit closeRequested();
}

void ImageViewerWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        emit closeRequested();
    else
        QWidget::keyPressEvent(event);
}

} // namespace kevra
