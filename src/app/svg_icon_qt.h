// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGui/QIcon>

#include <string_view>

namespace kevra {

/// One of the program's own drawings, crisp at every size. Its lines take the colour of the theme's text when
/// they are painted, so it reads on light and dark desktops.
[[nodiscard]] QIcon svgIcon(std::string_view name);

} // namespace kevra
