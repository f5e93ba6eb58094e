// SPDX-License-Identifier: GPL-3.0-or-later
// A key of the settings store with its section and default.
#pragma once

#include "storage/settings_store.h"

#include <string>
#include <string_view>

namespace kevra {

inline constexpr std::string_view settingsApplication = "kevra285";
inline constexpr std::string_view optionsSection = "settings";
inline constexpr std::string_view windowsSection = "windows";

struct SettingKey {
    std::string_view section;
    std::string_view name;
    std::string_view fallback;
};

[[nodiscard]] inline std::string readSetting(const SettingsStore &store, const SettingKey &key)
{
    return store.getSetting(settingsApplication, key.section, key.name, key.fallback);
}

inline void writeSetting(SettingsStore &store, const SettingKey &key, std::string_view value)
{
    store.saveSetting(settingsApplication, key.section, key.name, value);
}

} // namespace kevra
