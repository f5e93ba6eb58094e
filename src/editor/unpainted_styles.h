// SPDX-License-Identifier: GPL-3.0-or-later
// The styles of a large text's tail that a control has not painted yet because nobody has looked there.
// Whoever holds this paints what lies before start() and leaves the rest to it.
#pragma once

#include "text/types.h"

#include <limits>
#include <string>
#include <string_view>

namespace kevra {

class UnpaintedStyles {
public:
    /// From `start` on the text is unpainted; `styles` has a byte for each of its bytes.
    void keep(Offset start, std::string styles);
    void clear();

    /// Beyond every text when all is painted.
    [[nodiscard]] Offset start() const { return m_start; }
    [[nodiscard]] char styleAt(Offset position) const;
    /// The styles of a stretch from start() on, which stays unpainted; the view holds until the next call.
    [[nodiscard]] std::string_view styles(TextRange range) const;
    /// The styles from start() up to `end`, which count as painted from now on; the view holds until the next
    /// call.
    [[nodiscard]] std::string_view takeUpTo(Offset end);
    /// The text before start() has become longer by `by`, or shorter.
    void shift(Offset by);

private:
    static constexpr Offset nowhere = std::numeric_limits<Offset>::max() / 2;

    Offset m_start = nowhere;
    std::string m_styles;
    std::size_t m_taken = 0;
};

} // namespace kevra
