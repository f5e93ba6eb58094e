// SPDX-License-Identifier: GPL-3.0-or-later
// Breaks of overlong lines. A control that lays out whole lines needs seconds for each change of a line of
// megabytes, so its text has additional breaks. This converts between positions of the document and of the
// control.
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
    Offset longest = Offset{32} * 1024; ///< longer lines are broken
    Offset piece = 128; ///< into pieces of about this length
};

class SoftBreaks {
public:
    /// The bytes of a break in the control. The first is not valid in UTF-8, so it is in no document.
    static constexpr std::string_view mark = "\xFF\n";
    static constexpr auto markLength = static_cast<Offset>(mark.size());

    [[nodiscard]] bool empty() const { return m_places.empty(); }
    [[nodiscard]] Offset count() const { return static_cast<Offset>(m_places.size()); }
    /// The position in the control, after any breaks there.
    [[nodiscard]] Offset toControl(Offset text) const;
    /// The same, before any breaks there.
    [[nodiscard]] Offset toControlBefore(Offset text) const;
    /// The position in the document; inside a break, the position of the break.
    [[nodiscard]] Offset toText(Offset control) const;
    /// The number of breaks that end at or before a position of the control.
    [[nodiscard]] Offset countBefore(Offset control) const;
    /// The number of breaks at a position of the document.
    [[nodiscard]] Offset countAt(Offset text) const;
    /// The start of a break in the control, counted from 0.
    [[nodiscard]] Offset inControl(Offset number) const;
    /// The first break after a position of the document; past the end of any text if there is none.
    [[nodiscard]] Offset next(Offset text) const;

    /// Calls the function for each piece of a range of the document between breaks, with its start in the
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

    /// Text without breaks was inserted into the control.
    void inserted(Offset control, Offset length);
    /// The same for text with breaks in it. Returns its length without them.
    Offset inserted(Offset control, std::string_view content);
    void removed(Offset control, Offset length);
    void clear() { m_places.clear(); }

private:
    std::vector<Offset> m_places; ///< in the document, ascending; may be equal
};

[[nodiscard]] bool hasLongLine(std::string_view text, Offset longest);
/// The positions where a line is broken, each at the start of a character.
[[nodiscard]] std::vector<Offset> breakPlaces(std::string_view line, Offset piece);
/// The text with breaks in its long lines.
[[nodiscard]] std::string withBreaks(std::string_view text, const LineLimits &limits);

} // namespace kevra
