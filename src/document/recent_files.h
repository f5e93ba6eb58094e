// SPDX-License-Identifier: GPL-3.0-or-later
// The most recently used files, latest first, kept in the settings store.
#pragma once

#include "storage/file_store.h"
#include "storage/settings_store.h"

#include <string>
#include <vector>

namespace kevra {

class RecentFiles {
public:
    static constexpr std::size_t maxCount = 10;

    explicit RecentFiles(SettingsStore &store)
        : m_store(store)
    {
    }

    /// As stored; some may no longer exist.
    [[nodiscard]] std::vector<std::string> paths() const;
    /// Without those that no longer exist.
    [[nodiscard]] std::vector<std::string> existing(const FileReader &files) const;
    /// Moves an absolute path to the front.
    void add(const std::string &path);
    void forgetAll();

private:
    SettingsStore &m_store;
};

} // namespace kevra
