// SPDX-License-Identifier: GPL-3.0-or-later
// What commands need from the main window besides the document control.
#pragma once

#include "desktop/options.h"

#include <string_view>

namespace kevra {

class MainView {
public:
    virtual ~MainView() = default;

    virtual void setInformation(std::string_view text) = 0; ///< the box `tinfo`
    /// The caption of the main and the browser window: "KEVRA", " - ", the path.
    virtual void setTitlePath(std::string_view path) = 0;
    virtual void redrawAndFocus() = 0;
    /// Scrolls the line-number column to the document's first visible line.
    virtual void syncLineNumbers() = 0;
    /// Shows a command's outcome in the status line until the text changes.
    virtual void showNote(std::string_view text) = 0;
    /// Updates the encoding, line ends and saved state that are shown.
    virtual void refreshDocumentStatus() = 0;
};

/// The two tool sets, and the menu checks and toolbar pictures that show a state.
class ToolView {
public:
    virtual ~ToolView() = default;

    virtual void showScriptTools() = 0;
    virtual void showWebTools() = 0;
    virtual void showOption(Option option, bool on) = 0; ///< in its menu items and toolbar pictures, if any
    virtual void showProgramMenu(std::string_view text) = 0; ///< caption of `mex`, without its "&"
};

} // namespace kevra
