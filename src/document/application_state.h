// SPDX-License-Identifier: GPL-3.0-or-later
// State of the running program, owned by the application and passed to the commands that need it.
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
    std::string programPath = "none"; ///< the external program
    std::string programMenuText = "EXE";
    TwipRect padGeometry; ///< the clipping pad's geometry in its normal state, current or last
    PadState padState = PadState::Normal; ///< maintained by the pad
};

} // namespace kevra
