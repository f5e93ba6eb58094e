// SPDX-License-Identifier: GPL-3.0-or-later
// Where the program's own files are found and where it may keep its state.
#pragma once

#include <string>
#include <vector>

namespace kevra {

struct ProgramFolders {
    /// True when everything lives beside the executable: it holds the assets and can be written.
    bool portable = false;
    std::string
        autosave; ///< the folder of "autosave.txt" and of the recovery records; exists when it can be made
    /// For unsaved texts that the first folder does not take, the one that lasts longest first.
    std::vector<std::string> spare{};
};

[[nodiscard]] ProgramFolders programFolders();
/// The folder where the user keeps documents.
[[nodiscard]] std::string documentsFolder();

/// The full path of a help page or of the template: beside the executable, else in the user's data folder,
/// else in the installed one. When there is none, where it was expected first.
[[nodiscard]] std::string assetPath(const std::string &name);

} // namespace kevra
