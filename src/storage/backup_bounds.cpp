// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/backup_bounds.h"

#include <algorithm>
#include <functional>
#include <map>
#include <tuple>

namespace kevra {
namespace {
constexpr int maxVersions = 20;
constexpr std::int64_t maxAge = std::int64_t{30} * 24 * 60 * 60;
constexpr std::int64_t maxTotalBytes = 200'000'000;
} // namespace

std::vector<std::string> versionsToRemove(
    std::vector<KeptVersion> versions, std::int64_t now, std::string_view newest)
{
    std::ranges::sort(versions, std::greater{}, [&](const KeptVersion &version) {
        return std::tuple(version.name == newest, version.time, version.name);
    });
    std::vector<std::string> surplus;
    std::map<std::string, int> versionsOf;
    std::int64_t total = 0;
    for (const auto &version : versions) {
        total += version.size;
        if (++versionsOf[version.group] > maxVersions
            || (version.name != newest && (now - version.time > maxAge || total > maxTotalBytes)))
            surplus.push_back(version.name);
    }
    return surplus;
}

} // namespace kevra
