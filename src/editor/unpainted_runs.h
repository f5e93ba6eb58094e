// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of a large text's tail that a control has not painted yet because nobody has looked there: kept
// as runs until it asks. Whoever holds this paints what lies before start() and leaves the rest to it.
#pragma once

#include "editor/types.h"

#include <limits>
#include <span>
#include <string>

namespace kevra {

class UnpaintedRuns {
public:
    /// True when runs are in order and apart, as this can keep them.
    [[nodiscard]] static bool canKeep(std::span<const ColourRun> runs);

    /// Everything from `start` on is unpainted: style 0 where no run is, `styles[i]` in `runs[i]`.
    void keep(Offset start, std::span<const ColourRun> runs, std::span<const char> styles);
    void clear();

    /// Beyond every text when all is painted.
    [[nodiscard]] Offset start() const { return m_start; }
    [[nodiscard]] char styleAt(Offset position) const;
    /// The styles of the bytes from start() to `end`, which count as painted from now on.
    [[nodiscard]] std::string takeUpTo(Offset end);
    /// The text before start() has become longer by `by`, or shorter.
    void shift(Offset by);

private:
    struct Run {
        std::int32_t start; ///< before what shift() added
        std::int32_t end;
        char style;
    };

    static constexpr Offset nowhere = std::numeric_limits<Offset>::max() / 2;

    [[nodiscard]] std::size_t firstEndingBehind(Offset position) const;

    Offset m_start = nowhere;
    Offset m_shift = 0;
    std::vector<Run> m_runs;
    std::size_t m_next = 0; ///< the first that is not painted in full
};

} // namespace kevra
