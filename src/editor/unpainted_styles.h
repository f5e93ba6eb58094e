// SPDX-License-Identifier: GPL-3.0-or-later
// The styles for the rest of a large text that is not painted yet, because it has not been in view. The owner
// paints the text before start(). It is painted in slices, so that no keystroke waits for it.
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
        std::string_view styles; ///< valid until the next call
    };

    static constexpr Offset slice = 1 << 20; ///< bytes painted at once

    /// Sets the text from `start` on as unpainted; `styles` has one byte for each of its bytes.
    void keep(Offset start, std::string styles);
    void clear();

    /// Past the end of any text if all is painted.
    [[nodiscard]] Offset start() const { return m_start; }
    [[nodiscard]] char styleAt(Offset position) const;
    /// The styles of a range at or after start(), which stays unpainted; valid until the next call.
    [[nodiscard]] std::string_view styles(TextRange range) const;
    /// Takes the next unpainted slice before `end`, which then counts as painted; nothing if there is none.
    [[nodiscard]] std::optional<Stretch> takeNext(Offset end);
    /// Whether to paint a range by itself rather than everything before it: it is at most one slice long, and
    /// more than one slice is unpainted before its end.
    [[nodiscard]] bool isFarBelow(TextRange seen) const;
    /// The length of the text before start() has changed by `by`.
    void shift(Offset by);

private:
    static constexpr Offset nowhere = std::numeric_limits<Offset>::max() / 2;

    Offset m_start = nowhere;
    std::string m_styles;
    std::size_t m_taken = 0;
};

} // namespace kevra
