// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGui/QScreen>
#include <QtWidgets/QWidget>

namespace kevra {

/// Resizes a window so that its frame and last row stay visible on a small screen or at a large scale.
inline void resizeWithinScreen(QWidget &window, QSize usual)
{
    window.resize(usual.boundedTo(window.screen()->availableSize() * 9 / 10));
}

} // namespace kevra
