// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/file_dialogs.h"

namespace kevra {

class FileDialogsQt : public FileDialogs {
public:
    [[nodiscard]] std::optional<std::string> openFile(const OpenRequest &request) override;
    [[nodiscard]] std::vector<std::string> openFiles(const OpenRequest &request) override;
    [[nodiscard]] std::optional<SaveChoice> saveFile(const SaveRequest &request) override;
    [[nodiscard]] std::optional<std::string> chooseFolder(const std::string &title) override;
};

class ColourDialogQt : public ColourDialog {
public:
    [[nodiscard]] std::optional<Colour> choose(Colour initial) override;
};

} // namespace kevra
