// SPDX-License-Identifier: GPL-3.0-or-later
// What differs between two texts, line by line. The work is a library's, where there is one.
#pragma once

#include "text/types.h"

#include <string_view>
#include <vector>

namespace kevra {

/// A stretch of lines, counted from 0, that was replaced by another; either may be empty.
struct Hunk {
    Offset beforeStart = 0;
    Offset beforeCount = 0;
    Offset afterStart = 0;
    Offset afterCount = 0;

    friend bool operator==(const Hunk &, const Hunk &) = default;
};

/// From the top down; a line ends in LF, which is part of it. Any bytes may stand in a line. Takes memory in
/// proportion to the texts, and in texts that have little in common gives up looking for the fewest lines.
[[nodiscard]] std::vector<Hunk> differences(std::string_view before, std::string_view after);

} // namespace kevra
