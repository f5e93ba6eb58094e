// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "colour/keyword_pass.h"
#include "colour/tag_pass.h"
#include "editor/memory_surface.h"

#include <string>

namespace kevra {

/// One letter per byte: "c" code, "o" placeholder, "g" separator comment, "-" black, "r" anything else.
inline std::string marksOf(const EditorSurface &surface)
{
    std::string out;
    for (Offset at = 0; at < surface.TextLength(); ++at) {
        const auto colour = surface.ColourAt(at);
        out += colour == colours::black           ? '-'
            : colour == colours::defaultCode      ? 'c'
            : colour == colours::placeholder      ? 'o'
            : colour == colours::separatorComment ? 'g'
                                                  : 'r';
    }
    return out;
}

/// The marks of a document that was coloured as a whole.
inline std::string marksOfWholePass(std::string_view text, bool script)
{
    MemorySurface whole(text);
    whole.SetColours({0, whole.TextLength()},
        script ? scriptRuns(text, colours::defaultCode) : tagRuns(text, colours::defaultCode));
    return marksOf(whole);
}

} // namespace kevra
