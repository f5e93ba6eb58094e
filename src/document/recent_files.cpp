// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/recent_files.h"

#include "storage/setting_key.h"

#include <algorithm>

namespace kevra {
namespace {

constexpr std::string_view section = "recent";

std::string keyOf(std::size_t index)
{
    return "file" + std::to_string(index + 1);
}

} // namespace

std::vector<std::string> RecentFiles::paths() const
{
    std::vector<std::string> found;
    for (std::size_t i = 0; i < maxCount; ++i) {
        auto path = m_store.getSetting(settingsApplication, section, keyOf(i), "");
        if (!path.empty())
            found.push_back(std::move(path));
    }
    return found;
}

std::vector<std::string> RecentFiles::existing(const FileReader &files) const
{
    auto found = paths();
    std::erase_if(found, [&](const std::string &path) { return !files.fileExists(path); });
    return found;
}

void RecentFiles::add(const std::string &path)
{
    auto all = paths();
    if (path.empty() || (!all.empty() && all.front() == path))
        return;
    std::erase(all, path);
    all.insert(all.begin(), path);
    all.resize(std::min(all.size(), maxCount));
    for (std::size_t i = 0; i < all.size(); ++i)
        m_store.saveSetting(settingsApplication, section, keyOf(i), all[i]);
}

void RecentFiles::forgetAll()
{
    m_store.deleteSetting(settingsApplication, section);
}

} // namespace kevra
