// SPDX-License-Identifier: GPL-3.0-or-later
// Save and Save As: the questions, the target file, and removing files that the save makes stale.
#pragma once

#include "document/command_ports.h"

#include <functional>
#include <optional>
#include <string>

namespace kevra {

class SaveCommands {
public:
    explicit SaveCommands(FileCommandPorts ports);

    void save();
    /// True when the text was written.
    bool saveAs();
    void saveAsMenu();
    /// Save As under another dialog title; name and type proposed are those of `path`.
    bool saveAs(const std::string &title, const std::string &path);
    /// Saves bytes other than the document, which stays unchanged. Proposes `path`; true when they were
    /// written.
    bool saveBytesAs(const std::string &title, const std::string &path, std::string_view bytes);

    /// Set how the preview page and the autosave file of this run are removed.
    void onPreviewPageStale(std::function<void()> remove) { m_removePreviewPage = std::move(remove); }
    void onAutosaveStale(std::function<void()> remove) { m_removeAutosave = std::move(remove); }

private:
    [[nodiscard]] bool nothingToSave();
    [[nodiscard]] std::optional<std::string> chooseTarget(const std::string &title, const std::string &path);
    [[nodiscard]] bool write(const std::string &path, ReadOnlyFiles readOnly);
    /// Shows a failure in the status line.
    [[nodiscard]] bool succeeded(WriteOutcome saved, const std::string &path);
    void reportTornWrite(const std::string &path);
    void removeStaleFiles();
    void removeForeignPage(const std::string &path);

    FileCommandPorts m_ports;
    int m_filterIndex = 1;
    std::function<void()> m_removePreviewPage = [] {};
    std::function<void()> m_removeAutosave = [] {};
};

} // namespace kevra
