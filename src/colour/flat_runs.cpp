// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/flat_runs.h"

#include "text/paint.h"

#include <algorithm>

namespace kevra {

ColourRuns flattened(std::span<const ColourRun> runs, Offset length)
{
    const auto [palette, painted] = paintOf(runs, length);
    ColourRuns flat;
    for (std::size_t at = 0; at < painted.size();) {
        const auto end = std::min(painted.find_first_not_of(painted[at], at), painted.size());
        if (painted[at] != '\0')
            flat.push_back({{static_cast<Offset>(at), static_cast<Offset>(end)},
                palette[static_cast<unsigned char>(painted[at])]});
        at = end;
    }
    return flat;
}

} // namespace kevra
