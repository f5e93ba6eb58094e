// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

struct KeptVersion {
    std::string name; ///< of the copy
    std::string of; ///< the same for every version of one file
    std::int64_t time = 0; ///< seconds since 1970
    std::int64_t size = 0; ///< bytes
};

/// The copies that have to go: beyond 20 versions of a file, 30 days, 200 MB in all; the oldest first. Never
/// `newest`, the name of what was put in last, whatever its size and time.
[[nodiscard]] std::vector<std::string> beyondBounds(
    std::vector<KeptVersion> versions, std::int64_t now, std::string_view newest);

} // namespace kevra
