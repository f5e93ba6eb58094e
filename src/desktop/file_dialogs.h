// SPDX-License-Identifier: GPL-3.0-or-later
// The common dialogs: open, save, colour. Each is modal; a cancelled one returns nothing. Paths are file
// system bytes.
#pragma once

#include "text/types.h"

#include <optional>
#include <string>
#include <vector>

namespace kevra {

struct FileFilter {
    std::string description;
    std::string patterns; ///< separated by semicolons, such as "*.gif;*.jpg"
};

struct OpenRequest {
    std::string title;
    std::vector<FileFilter> filters;
    std::string folder{}; ///< where the dialog starts; if empty or missing, the folder used last
};

struct SaveRequest {
    std::string title;
    std::string proposedName; ///< a name or a path; empty proposes nothing
    std::vector<FileFilter> filters;
    int filterIndex = 1; ///< from 1
    std::string folder{}; ///< as in OpenRequest; the folder of a proposed path takes precedence
};

struct SaveChoice {
    std::string path;
    int filterIndex = 1;
};

class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    [[nodiscard]] virtual std::optional<std::string> openFile(const OpenRequest &request) = 0;
    [[nodiscard]] virtual std::vector<std::string> openFiles(const OpenRequest &request) = 0;
    /// Does not ask before replacing an existing file, and adds no extension.
    [[nodiscard]] virtual std::optional<SaveChoice> saveFile(const SaveRequest &request) = 0;
    [[nodiscard]] virtual std::optional<std::string> chooseFolder(const std::string &title) = 0;
};

class ColourDialog {
public:
    virtual ~ColourDialog() = default;
    [[nodiscard]] virtual std::optional<Colour> choose(Colour initial) = 0;
};

} // namespace kevra
