// SPDX-License-Identifier: GPL-3.0-or-later
// Two texts as rows that stand beside each other, so that lines which correspond share a row.
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
    std::vector<Offset> differences; ///< the first row of each stretch that differs
    std::string left; ///< one line a row, blank where the side has none; CRLF line breaks
    std::string right;
};

[[nodiscard]] Comparison compareTexts(std::string_view left, std::string_view right);

} // namespace kevra
