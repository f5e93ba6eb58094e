// SPDX-License-Identifier: GPL-3.0-or-later
// Converts between twips and device-independent pixels, and moves windows onto an existing screen.
#pragma once

#include "desktop/geometry.h"

#include <QtCore/QRect>

namespace kevra {

[[nodiscard]] QRect pixels(const TwipRect &rect);
[[nodiscard]] TwipRect twips(const QRect &rect);
/// `rect` resized and moved so that it lies entirely on one screen.
[[nodiscard]] QRect onAScreen(QRect rect);

} // namespace kevra
