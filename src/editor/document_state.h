// SPDX-License-Identifier: GPL-3.0-or-later
// What is known of one document apart from its text.
#pragma once

#include "editor/editor_options.h"
#include "editor/surface.h"

#include <string>

namespace kevra {

struct DocumentState {
    explicit DocumentState(EditorOptions &ofProgram)
        : options(ofProgram)
    {
    }

    EditorOptions &options; ///< the same for all documents

    std::string currentPath; ///< full path as bytes; empty for new work
    std::string currentExtension; ///< upper case, without the dot
    bool unsaved = false;
    bool busyLoadingOrSaving = false;
    bool autosaveWritten = false; ///< by this run of the program, and not saved since
    /// The program is changing text or colours, so change handlers do nothing.
    bool programmaticChange = false;
    bool colourApplies = true; ///< the file type is coloured
    bool scriptTools = false; ///< which tools are shown with it
    bool lineDebugOn = true;

    [[nodiscard]] bool takesColour() const { return options.colourCoding && colourApplies; }
};

/// A document to the commands on its text. Copies refer to the same document.
struct EditedDocument {
    EditorSurface &surface;
    DocumentState &state;
};

} // namespace kevra
