// SPDX-License-Identifier: GPL-3.0-or-later
// What the program knows of its run, owned by the application and handed to every command that needs it.
#pragma once

#include "desktop/geometry.h"

#include <string>

namespace kevra {

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
