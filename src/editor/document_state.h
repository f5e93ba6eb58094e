// SPDX-License-Identifier: GPL-3.0-or-later
// What is known of one document beside its text, handed to every command that needs it.
#pragma once

#include "text/types.h"

#include <string>

namespace kevra {

struct DocumentState {
    std::string currentPath; ///< full path as bytes; empty for new work
    std::string currentExtension; ///< upper case, without the dot
    bool unsaved = false;
    bool busyLoadingOrSaving = false;
    bool autosaveWritten = false; ///< by this run of the program, and not saved since
    /// The program itself is changing text or colours, so change handlers stay quiet.
    bool programmaticChange = false;

    bool colourCoding = true; ///< the user's switch
    bool colourApplies = true; ///< the file's type takes colours
    Colour codeColour = colours::defaultCode;

    bool scriptTools = false;
    bool lineDebugPreferred = true; ///< the stored setting
    bool lineDebugOn = true; ///< now, for this document
    bool ifChecking = true;
    bool snippetComments = true;
    bool fsoMenu = true;

    std::string fontFace; ///< as stored; may name a face that the box does not list
    std::string fontSize;

    [[nodiscard]] bool takesColour() const { return colourCoding && colourApplies; }
};

} // namespace kevra
