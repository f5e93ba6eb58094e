// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and writing a key of the table, always with its own default.
#pragma once

#include "settings/keys.h"
#include "settings/settings_store.h"

#include <string>
#include <string_view>

namespace kevra {

[[nodiscard]] inline std::string readSetting(const SettingsStore &store, const SettingKey &key)
{
    return store.getSetting(settingsApplication, key.section, key.name, key.fallback);
}

inline void writeSetting(SettingsStore &store, const SettingKey &key, std::string_view value)
{
    store.saveSetting(settingsApplication, key.section, key.name, value);
}

} // namespace kevra
