// SPDX-License-Identifier: GPL-3.0-or-later
// From twips to device-independent pixels and back, and onto a screen that exists.
#pragma once

#include "desktop/geometry.h"

#include <QtCore/QRect>

namespace kevra {

[[nodiscard]] QRect pixels(const TwipRect &rect);
[[nodiscard]] TwipRect twips(const QRect &rect);
/// `rect` if a screen shows enough of it; otherwise moved and made smaller until one does.
[[nodiscard]] QRect onAScreen(QRect rect);

} // namespace kevra
