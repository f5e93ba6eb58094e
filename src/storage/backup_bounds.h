// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

struct KeptVersion {
    std::string name; ///< of the copy
    std::string group; ///< the same for every version of one file
    std::int64_t time = 0; ///< seconds since 1970
    std::int64_t size = 0; ///< bytes
};

/// The copies to remove so that at most 20 versions of a file, 30 days and 200 MB in all remain; older ones
/// go before newer ones. Never `newest`, the copy just added, even if it is too old or too large.
[[nodiscard]] std::vector<std::string> versionsToRemove(
    std::vector<KeptVersion> versions, std::int64_t now, std::string_view newest);

} // namespace kevra
