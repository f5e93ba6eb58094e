// SPDX-License-Identifier: GPL-3.0-or-later
// What the user has set for every document of the program.
#pragma once

#include "text/types.h"

namespace kevra {

struct EditorOptions {
    bool colourCoding = true;
    Colour codeColour = colours::defaultCode;
    bool lineDebug = true; ///< for scripts opened from now on
    bool ifChecking = true;
    bool snippetComments = true;
    bool fsoMenu = true;
};

} // namespace kevra
