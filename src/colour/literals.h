// SPDX-License-Identifier: GPL-3.0-or-later
// Splits a script at its string literals. A literal runs from a double quote to the next one, even across
// lines.
#pragma once

#include "text/types.h"

#include <string_view>

namespace kevra {

inline constexpr char quoteMark = '"';

/// Calls `pass` for every piece of `range` outside literals, without the quotes, in order. A literal without
/// a closing quote counts as code: the piece before it is repeated, extended to the end of the range.
template <typename Pass> void forEachPiece(std::string_view text, TextRange range, Pass &&pass)
{
    const auto within = text.substr(0, static_cast<std::size_t>(range.end));
    const auto quoteFrom = [within](Offset from) {
        const auto at = within.find(quoteMark, static_cast<std::size_t>(from));
        return at == std::string_view::npos ? Offset{-1} : static_cast<Offset>(at);
    };
    auto start = range.start;
    for (auto opening = quoteFrom(start); opening != -1; opening = quoteFrom(start)) {
        pass(TextRange{start, opening});
        const auto closing = quoteFrom(opening + 1);
        if (closing == -1)
            break;
        start = closing + 1;
    }
    pass(TextRange{start, range.end});
}

} // namespace kevra
