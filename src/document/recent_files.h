// SPDX-License-Identifier: GPL-3.0-or-later
// The files worked on last, in the settings store, the latest first.
#pragma once

#include "storage/settings_store.h"

#include <string>
#include <vector>

namespace kevra {

class RecentFiles {
public:
    static constexpr std::size_t most = 10;

    explicit RecentFiles(SettingsStore &store)
        : m_store(store)
    {
    }

    /// As stored; some may be gone from the disk.
    [[nodiscard]] std::vector<std::string> paths() const;
    /// Puts a full path first.
    void add(const std::string &path);
    void forgetAll();

private:
    SettingsStore &m_store;
};

} // namespace kevra
