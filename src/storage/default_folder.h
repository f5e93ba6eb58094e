// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace kevra {

/// The default temporary folder, as stored and shown on every system.
inline constexpr std::string_view defaultTempFolder = R"(C:\My Documents)";

} // namespace kevra
