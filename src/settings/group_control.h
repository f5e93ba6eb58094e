// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace kevra {

/// A control of the settings dialog: its object name, and a button's tooltip or an entry's accessible name.
struct GroupControl {
    std::string_view name;
    std::string_view tip;
};

} // namespace kevra
