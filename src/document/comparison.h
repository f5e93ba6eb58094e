// SPDX-License-Identifier: GPL-3.0-or-later
// Two texts aligned in rows, so that corresponding lines share a row.
#pragma once

#include "text/types.h"

#include <string>
#include <string_view>
#include <vector>

namespace kevra {

enum class RowKind { Same, Changed, Removed, Added };

struct ComparedRow {
    static constexpr Offset none = -1;
    Offset left = none; ///< line from 0; none: this side is blank here
    Offset right = none;
    RowKind kind = RowKind::Same;

    friend bool operator==(const ComparedRow &, const ComparedRow &) = default;
};

struct Comparison {
    std::vector<ComparedRow> rows;
    std::vector<Offset> differences; ///< the first row of each difference
    std::string left; ///< one line per row, blank where this side has no line; CRLF line breaks
    std::string right;
};

[[nodiscard]] Comparison compareTexts(std::string_view left, std::string_view right);

} // namespace kevra
