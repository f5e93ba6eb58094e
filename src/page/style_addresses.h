// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>
#include <vector>

namespace kevra::page {

/// What url() and @import name in a style sheet, as parts of it; those with escapes are left out.
[[nodiscard]] std::vector<std::string_view> addressesInStyle(std::string_view style);

} // namespace kevra::page
