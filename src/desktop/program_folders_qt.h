// SPDX-License-Identifier: GPL-3.0-or-later
// Where the program's own files are found and where it may keep its state.
#pragma once

#include <string>
#include <vector>

namespace kevra {

struct ProgramFolders {
    /// True when the executable's folder holds the assets and is writable; everything is then kept there.
    bool portable = false;
    std::string autosave; ///< the folder of "autosave.txt" and of the recovery records; created if possible
    /// Fallback folders for unsaved texts; the longest-lived first.
    std::vector<std::string> spare{};
};

[[nodiscard]] ProgramFolders programFolders();
/// The folder where the user keeps documents.
[[nodiscard]] std::string documentsFolder();

/// The full path of a help page or of the template: beside the executable, else in the user's data folder,
/// else in the installed one. If it is missing everywhere, the path beside the executable.
[[nodiscard]] std::string assetPath(const std::string &name);

} // namespace kevra
