// SPDX-License-Identifier: GPL-3.0-or-later
// What commands ask of the main window beside the document control.
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
    /// A word about what a command did, in the status line; it goes with the next change of the text.
    virtual void tell(std::string_view text) = 0;
    /// The encoding, the line ends and whether the text equals the file have to be shown anew.
    virtual void refreshDocumentStatus() = 0;
};

/// The two tool sets, and the menu checks and toolbar pictures that show a state.
class ToolView {
public:
    virtual ~ToolView() = default;

    virtual void showScriptTools() = 0;
    virtual void showWebTools() = 0;
    virtual void showOption(Option option, bool on)
        = 0; ///< by its menu items and toolbar pictures, where it has any
    virtual void showProgramMenu(std::string_view text) = 0; ///< caption of `mex`, without its "&"
};

} // namespace kevra
