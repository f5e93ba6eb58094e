// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/flat_runs.h"

#include <algorithm>
#include <string>

namespace kevra {

ColourRuns flattened(std::span<const ColourRun> runs, Offset length)
{
    std::vector<Colour> palette{colours::black};
    std::string painted(static_cast<std::size_t>(length), '\0');
    for (const auto &run : runs) {
        auto known = std::ranges::find(palette, run.colour);
        if (known == palette.end())
            known = palette.insert(palette.end(), run.colour);
        std::fill(painted.begin() + run.range.start, painted.begin() + run.range.end,
            static_cast<char>(known - palette.begin()));
    }
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
