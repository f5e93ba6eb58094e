// SPDX-License-Identifier: GPL-3.0-or-later
// What the whole program knows of its one document and of the run, owned by the application and handed to
// every command that needs it.
#pragma once

#include "desktop/geometry.h"
#include "text/types.h"

#include <string>

namespace kevra {

struct DocumentState {
    std::string currentPath; ///< full path as bytes; empty for new work
    std::string currentExtension; ///< upper case, without the dot
    bool unsaved = false;
    bool busyLoadingOrSaving = false;
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

enum class PadState { Normal, Other };

struct ApplicationState {
    std::string commandLine;
    bool helpShowing = false;
    bool vbsInfoShowing = false;
    bool previewFresh = true;
    bool fontFaceChanged = false;
    std::string previewTempPath; ///< the page last written for the preview; empty when none
    std::string tempFolder; ///< where the preview of unsaved work goes, without a trailing separator
    bool autosaveOn = false;
    int autosaveMinutes = 0;
    bool autosaveWritten = false;
    std::string programPath = "none"; ///< the external program
    std::string programMenuText = "EXE";
    TwipRect padGeometry; ///< where the clipping pad stands, or stood when it was last in its normal state
    PadState padState = PadState::Normal; ///< kept by the pad
};

} // namespace kevra
