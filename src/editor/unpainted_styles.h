// SPDX-License-Identifier: GPL-3.0-or-later
// The styles of a large text's tail that a control has not painted yet because nobody has looked there.
// Whoever holds this paints what lies before start() and leaves the rest to it. A large text is painted in
// slices, so that no key waits for it.
#pragma once

#include "text/types.h"

#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace kevra {

class UnpaintedStyles {
public:
    struct Stretch {
        Offset start = 0;
        std::string_view styles; ///< holds until the next call
    };

    static constexpr Offset slice = 1 << 20; ///< bytes painted at once

    /// From `start` on the text is unpainted; `styles` has a byte for each of its bytes.
    void keep(Offset start, std::string styles);
    void clear();

    /// Beyond every text when all is painted.
    [[nodiscard]] Offset start() const { return m_start; }
    [[nodiscard]] char styleAt(Offset position) const;
    /// The styles of a stretch from start() on, which stays unpainted; the view holds until the next call.
    [[nodiscard]] std::string_view styles(TextRange range) const;
    /// The first slice of what is unpainted before `end`, which counts as painted from now on; nothing when
    /// all is.
    [[nodiscard]] std::optional<Stretch> takeNext(Offset end);
    /// Whether a stretch is better painted by itself than together with all before it: it is no longer than a
    /// slice, and more than one lies before its end.
    [[nodiscard]] bool isFarBelow(TextRange seen) const;
    /// The text before start() has become longer by `by`, or shorter.
    void shift(Offset by);

private:
    static constexpr Offset nowhere = std::numeric_limits<Offset>::max() / 2;

    Offset m_start = nowhere;
    std::string m_styles;
    std::size_t m_taken = 0;
};

} // namespace kevra
