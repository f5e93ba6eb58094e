// SPDX-License-Identifier: GPL-3.0-or-later
// The per-user store of named values: application, section, key, string. Nothing here fails: a value that
// cannot be read is its default; one that cannot be written lasts until the program ends.
#pragma once

#include <string>
#include <string_view>

namespace kevra {

class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    [[nodiscard]] virtual std::string getSetting(std::string_view app, std::string_view section,
        std::string_view key, std::string_view fallback) const = 0;
    virtual void saveSetting(
        std::string_view app, std::string_view section, std::string_view key, std::string_view value)
        = 0;
    /// Whether the next start will find the value saved last.
    [[nodiscard]] virtual bool isStored() const { return true; }
    virtual void deleteSetting(std::string_view app, std::string_view section) = 0;
    virtual void deleteSetting(std::string_view app) = 0;
};

} // namespace kevra
