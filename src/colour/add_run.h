// SPDX-License-Identifier: GPL-3.0-or-later
// Collecting the runs of a text. A list that grows by doubling copies its megabytes again and again into
// memory that the system first has to clear, which for a large text costs more than finding the runs.
#pragma once

#include "text/types.h"

#include <algorithm>

namespace kevra {

/// Room for the runs of the whole text, as many as come at the rate of the part done so far.
inline void makeRoom(ColourRuns &runs, Offset done, Offset size)
{
    constexpr std::size_t few = 1024;
    const auto count = static_cast<double>(runs.size());
    const auto expected = count * static_cast<double>(size) / static_cast<double>(std::max<Offset>(done, 1));
    // A start unlike the rest must not ask for memory without bounds.
    runs.reserve(few + static_cast<std::size_t>(std::clamp(expected * 1.1, count * 1.5, count * 64)));
}

/// Adds a run of a text of `size` bytes; they come more or less in the order of the text.
inline void addRun(ColourRuns &runs, const ColourRun &run, Offset size)
{
    if (runs.size() == runs.capacity())
        makeRoom(runs, run.range.end, size);
    runs.push_back(run);
}

} // namespace kevra
