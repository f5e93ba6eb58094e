// SPDX-License-Identifier: GPL-3.0-or-later
// Where a control shows an overlong line on several lines. A control that lays out whole lines needs seconds
// for each change of a line of megabytes; so its copy of the text has breaks that the document has not. This
// keeps apart where something stands in the document and where it stands in the control.
#pragma once

#include "text/types.h"

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

/// In bytes.
struct LineLimits {
    Offset longest = Offset{32} * 1024; ///< a longer line is broken
    Offset piece = 1024; ///< into pieces of about that
};

class SoftBreaks {
public:
    /// What a break is in the control. The first byte is in no UTF-8, so a document never holds it.
    static constexpr std::string_view mark = "\xFF\n";
    static constexpr auto markLength = static_cast<Offset>(mark.size());

    [[nodiscard]] bool empty() const { return m_places.empty(); }
    [[nodiscard]] Offset count() const { return static_cast<Offset>(m_places.size()); }
    /// The position in the control, after the breaks that stand there.
    [[nodiscard]] Offset toControl(Offset text) const;
    /// The same, before them.
    [[nodiscard]] Offset toControlBefore(Offset text) const;
    /// The position in the document; inside a break it is that of the break.
    [[nodiscard]] Offset toText(Offset control) const;
    /// Of the breaks, how many end at or before a position of the control.
    [[nodiscard]] Offset countBefore(Offset control) const;
    /// Of the breaks that stand at a position of the document, how many there are.
    [[nodiscard]] Offset countAt(Offset text) const;
    /// The start of a break in the control, counted from 0.
    [[nodiscard]] Offset inControl(Offset number) const;
    /// The first break after a position of the document; beyond every text when there is none.
    [[nodiscard]] Offset next(Offset text) const;

    /// Calls for each part of a range of the document without a break inside, with where it starts in the
    /// control.
    template <typename Each> void eachPiece(TextRange range, const Each &each) const
    {
        auto next = std::ranges::upper_bound(m_places, range.start);
        for (auto at = range.start; at < range.end;) {
            const auto end = next == m_places.end() ? range.end : std::min(range.end, *next);
            each(TextRange{at, end}, at + markLength * (next - m_places.begin()));
            at = end;
            while (next != m_places.end() && *next <= at)
                ++next;
        }
    }

    /// So much text has come into the control, without any break.
    void inserted(Offset control, Offset length);
    /// The same with what has come, the marks in which are breaks. Says how much of it is text.
    Offset inserted(Offset control, std::string_view content);
    void removed(Offset control, Offset length);
    void clear() { m_places.clear(); }

private:
    std::vector<Offset> m_places; ///< in the document, in order; equal ones have nothing between them
};

[[nodiscard]] bool hasLongLine(std::string_view text, Offset longest);
/// The places in a line where it is broken: before the first byte of a character.
[[nodiscard]] std::vector<Offset> breakPlaces(std::string_view line, Offset piece);
/// The text with marks in its long lines.
[[nodiscard]] std::string withBreaks(std::string_view text, const LineLimits &limits);

} // namespace kevra
