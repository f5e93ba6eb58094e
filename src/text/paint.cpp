// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/paint.h"

#include <algorithm>

namespace kevra {
namespace {

std::size_t indexOf(Colour colour, std::vector<Colour> &palette)
{
    const auto known = std::ranges::find(palette, colour) - palette.begin();
    if (known == std::ssize(palette))
        palette.push_back(colour);
    return static_cast<std::size_t>(known);
}

} // namespace

Paint paintOf(std::span<const ColourRun> runs, Offset length)
{
    Paint paint;
    paint.indices.resize(static_cast<std::size_t>(length));
    for (const auto &run : runs) {
        const auto start = std::max<Offset>(run.range.start, 0);
        const auto end = std::min(run.range.end, length);
        const auto index = static_cast<char>(indexOf(run.colour, paint.palette));
        if (start < end)
            std::fill(paint.indices.begin() + start, paint.indices.begin() + end, index);
    }
    return paint;
}

} // namespace kevra
