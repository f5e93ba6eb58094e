// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "storage/setting_key.h"

namespace kevra::keys {

inline constexpr SettingKey programPath{optionsSection, "aptorun", "no"};
inline constexpr SettingKey programMenu{optionsSection, "exemenu", "no"};

} // namespace kevra::keys
