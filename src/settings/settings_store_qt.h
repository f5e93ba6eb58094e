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

/// One INI file per application name, in the user's configuration folder. A file that does not parse is
/// backed up before the first write, because a write keeps only what could be parsed. If a file cannot be
/// written, the values stay in memory and are written with the next change.
class SettingsStoreQt : public SettingsStore {
public:
    [[nodiscard]] std::string getSetting(std::string_view app, std::string_view section, std::string_view key,
        std::string_view fallback) const override;
    void saveSetting(std::string_view app, std::string_view section, std::string_view key,
        std::string_view value) override;
    [[nodiscard]] bool isStored() const override { return m_stored; }
    void deleteSetting(std::string_view app, std::string_view section) override;
    void deleteSetting(std::string_view app) override;
    /// Files skipped because they are not regular files; another name is used instead.
    [[nodiscard]] const std::vector<std::string> &passedOver() const { return m_passedOver; }

private:
    [[nodiscard]] QString fileOf(std::string_view app) const;
    QSettings &file(std::string_view app) const;
    QSettings &fileToWrite(std::string_view app);

    mutable std::map<std::string, std::unique_ptr<QSettings>, std::less<>> m_files;
    std::set<std::string> m_backedUp;
    mutable std::vector<std::string> m_passedOver;
    bool m_stored = true;
};

} // namespace kevra
