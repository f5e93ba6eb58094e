// SPDX-License-Identifier: GPL-3.0-or-later
// The differences between two texts, line by line; computed by a library where the system has one.
#pragma once

#include "text/types.h"

#include <string_view>
#include <vector>

namespace kevra {

/// A range of lines, counted from 0, that was replaced by another one; either may be empty.
struct Hunk {
    Offset beforeStart = 0;
    Offset beforeCount = 0;
    Offset afterStart = 0;
    Offset afterCount = 0;

    friend bool operator==(const Hunk &, const Hunk &) = default;
};

/// The hunks in ascending order. A line ends in LF, which is part of it, and may contain any bytes. Memory is
/// proportional to the texts. For texts that have little in common the hunks may not be the shortest
/// possible.
[[nodiscard]] std::vector<Hunk> differences(std::string_view before, std::string_view after);

} // namespace kevra
