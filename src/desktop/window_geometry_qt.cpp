// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/window_geometry_qt.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

#include <algorithm>

namespace kevra {

namespace {

constexpr QSize minimumSize(320, 240);

const QScreen *screenFor(const QRect &rect)
{
    const auto area = [&](const QScreen *screen) {
        const auto shared = screen->availableGeometry().intersected(rect);
        return shared.width() * shared.height();
    };
    const auto screens = QGuiApplication::screens();
    const auto best = std::ranges::max_element(screens, {}, area);
    return best != screens.end() && area(*best) > 0 ? *best : QGuiApplication::primaryScreen();
}

} // namespace

QRect pixels(const TwipRect &rect)
{
    // A stored length that was edited by hand can be anything; clamped so that sums do not overflow.
    static constexpr int maxPixels = 1'000'000;
    const auto pixel = [](int length) { return std::clamp(length / twipsPerPixel, -maxPixels, maxPixels); };
    return {pixel(rect.left), pixel(rect.top), pixel(rect.width), pixel(rect.height)};
}

TwipRect twips(const QRect &rect)
{
    return {rect.x() * twipsPerPixel, rect.y() * twipsPerPixel, rect.width() * twipsPerPixel,
        rect.height() * twipsPerPixel};
}

QRect onAScreen(QRect rect)
{
    const auto *screen = screenFor(rect);
    if (!screen)
        return rect;
    const auto area = screen->availableGeometry();
    rect.setSize(rect.size().expandedTo(minimumSize).boundedTo(area.size()));
    rect.moveLeft(std::clamp(rect.left(), area.left(), area.right() - rect.width() + 1));
    rect.moveTop(std::clamp(rect.top(), area.top(), area.bottom() - rect.height() + 1));
    return rect;
}

} // namespace kevra
