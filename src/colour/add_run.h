// SPDX-License-Identifier: GPL-3.0-or-later
// Collects the runs of a text. A vector that grows by doubling copies megabytes several times into memory
// that the system must clear first, which for a large text takes longer than finding the runs.
#pragma once

#include "text/types.h"

#include <algorithm>

namespace kevra {

/// Reserves memory for the runs of the whole text, estimated from the part done so far.
inline void reserveRuns(ColourRuns &runs, Offset done, Offset size)
{
    constexpr std::size_t minReserve = 1024;
    const auto count = static_cast<double>(runs.size());
    const auto expected = count * static_cast<double>(size) / static_cast<double>(std::max<Offset>(done, 1));
    // The estimate is bounded, as the start of a text may be unlike the rest.
    runs.reserve(minReserve + static_cast<std::size_t>(std::clamp(expected * 1.1, count * 1.5, count * 64)));
}

/// Adds a run of a text of `size` bytes. Runs are added roughly in the order of the text.
inline void addRun(ColourRuns &runs, const ColourRun &run, Offset size)
{
    if (runs.size() == runs.capacity())
        reserveRuns(runs, run.range.end, size);
    runs.push_back(run);
}

} // namespace kevra
