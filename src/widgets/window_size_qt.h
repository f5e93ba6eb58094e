// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGui/QScreen>
#include <QtWidgets/QWidget>

namespace kevra {

/// Also on a small screen, or at a large scale, a window's frame and last row stay in view.
inline void resizeWithinScreen(QWidget &window, QSize usual)
{
    window.resize(usual.boundedTo(window.screen()->availableSize() * 9 / 10));
}

} // namespace kevra
