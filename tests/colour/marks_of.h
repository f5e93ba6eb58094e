// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editor/surface.h"

#include <string>

namespace kevra {

/// A letter a byte: "c" code, "o" placeholder, "g" separator comment, "-" black, "r" anything else.
inline std::string marksOf(const EditorSurface &surface)
{
    std::string out;
    for (Offset at = 0; at < surface.Length(); ++at) {
        const auto colour = surface.ColourAt(at);
        out += colour == colours::black           ? '-'
            : colour == colours::defaultCode      ? 'c'
            : colour == colours::placeholder      ? 'o'
            : colour == colours::separatorComment ? 'g'
                                                  : 'r';
    }
    return out;
}

} // namespace kevra
