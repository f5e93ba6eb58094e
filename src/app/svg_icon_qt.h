// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGui/QIcon>

#include <string_view>

namespace kevra {

/// One of the program's drawings, rendered at every size. Its lines are painted in the theme's text colour,
/// for light and dark desktops.
[[nodiscard]] QIcon svgIcon(std::string_view name);

} // namespace kevra
