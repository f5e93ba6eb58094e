// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the marks of a script. A pass repeatedly needs the next mark after a position; the last result is
// cached, so that a whole document costs one search for each kind of mark.
#pragma once

#include "text/types.h"

#include <string_view>

namespace kevra {

inline constexpr std::string_view placeholderOpening = "<<";
inline constexpr std::string_view placeholderClosing = ">>";
inline constexpr std::string_view separatorComment = "'--";

class MarkSearch {
public:
    /// Both views must outlive the search.
    MarkSearch(std::string_view text, std::string_view mark);

    /// The first position at or after `from` where the mark starts, or -1.
    [[nodiscard]] Offset next(Offset from);

private:
    [[nodiscard]] Offset search(std::size_t from) const;

    std::string_view m_text;
    std::string_view m_mark;
    Offset m_searchedFrom = 0;
    Offset m_found = -2; ///< -2: not searched yet
};

/// The marks of one text, each searched once as a pass moves forward.
struct ScriptMarks {
    explicit ScriptMarks(std::string_view text);

    MarkSearch opening;
    MarkSearch closing;
    MarkSearch comment;
    MarkSearch lineEnd; ///< the carriage return
};

} // namespace kevra
