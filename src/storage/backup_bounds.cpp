// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/backup_bounds.h"

#include <algorithm>
#include <functional>
#include <map>
#include <tuple>

namespace kevra {
namespace {
constexpr int mostVersions = 20;
constexpr std::int64_t longestTime = std::int64_t{30} * 24 * 60 * 60;
constexpr std::int64_t largestTotal = 200'000'000;
} // namespace

std::vector<std::string> beyondBounds(
    std::vector<KeptVersion> versions, std::int64_t now, std::string_view newest)
{
    std::ranges::sort(versions, std::greater{}, [&](const KeptVersion &version) {
        return std::tuple(version.name == newest, version.time, version.name);
    });
    std::vector<std::string> superfluous;
    std::map<std::string, int> versionsOf;
    std::int64_t total = 0;
    for (const auto &version : versions) {
        total += version.size;
        if (++versionsOf[version.of] > mostVersions
            || (version.name != newest && (now - version.time > longestTime || total > largestTotal)))
            superfluous.push_back(version.name);
    }
    return superfluous;
}

} // namespace kevra
