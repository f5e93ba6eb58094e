// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "storage/settings_store.h"

#include <QtCore/QSettings>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace kevra {

/// One INI file an application name, in the user's configuration folder. A file that does not parse is copied
/// aside before it is first written, because a write keeps only what could be parsed. A file that cannot be
/// written stays as it is; the values are kept in memory and written with the next one.
class SettingsStoreQt : public SettingsStore {
public:
    [[nodiscard]] std::string getSetting(std::string_view app, std::string_view section, std::string_view key,
        std::string_view fallback) const override;
    void saveSetting(std::string_view app, std::string_view section, std::string_view key,
        std::string_view value) override;
    [[nodiscard]] bool isStored() const override { return m_stored; }
    void deleteSetting(std::string_view app, std::string_view section) override;
    void deleteSetting(std::string_view app) override;
    /// Files of that name that are no regular ones; another name is used in their stead.
    [[nodiscard]] const std::vector<std::string> &passedOver() const { return m_passedOver; }

private:
    [[nodiscard]] QString fileOf(std::string_view app) const;
    QSettings &file(std::string_view app) const;
    QSettings &fileToWrite(std::string_view app);

    mutable std::map<std::string, std::unique_ptr<QSettings>, std::less<>> m_files;
    std::set<std::string> m_keptAside;
    mutable std::vector<std::string> m_passedOver;
    bool m_stored = true;
};

} // namespace kevra
