// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace kevra {

/// The temporary folder when none was chosen, as the settings store and the dialog show it on every system.
inline constexpr std::string_view defaultTempFolder = R"(C:\My Documents)";

} // namespace kevra
