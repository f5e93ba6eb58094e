// SPDX-License-Identifier: GPL-3.0-or-later
// The bar shown when another program changes the document's file, and its commands. It does not block, and
// saving works as usual.
#pragma once

#include "document/command_ports.h"
#include "document/open_commands.h"

#include <optional>
#include <string>

namespace kevra {

enum class DiskBar {
    None,
    Changed, ///< Reload, Keep Mine, Compare
    Gone, ///< Keep Mine
    Replaced, ///< a save replaced another program's version: Compare, Put Back, Close
};

/// Two texts to show side by side.
struct TextsToCompare {
    std::string leftTitle;
    std::string left;
    std::string rightTitle;
    std::string right;
};

class DiskChangeView {
public:
    virtual ~DiskChangeView() = default;
    virtual void showDiskBar(DiskBar bar, const std::string &text) = 0;
    virtual void showComparison(const TextsToCompare &texts) = 0;
};

class DiskChanges {
public:
    DiskChanges(FileCommandPorts ports, OpenCommands &opening, DiskChangeView &view);

    /// Call when the file may have changed, or after the document was replaced or saved.
    void check();
    /// Whether an unedited document is reloaded without asking.
    void setReloadsByItself(bool on) { m_reloadsByItself = on; }

    // The bar's buttons.
    void reload();
    void keepMine();
    void compare();
    void putBack();
    void close();

    [[nodiscard]] DiskBar bar() const { return m_bar; }
    /// Whether saving or replacing the document may have changed what the bar says.
    [[nodiscard]] bool isCheckDue() const;

private:
    void show(DiskBar bar);
    [[nodiscard]] DiskBar barForState();

    FileCommandPorts m_ports;
    OpenCommands &m_opening;
    DiskChangeView &m_view;
    DiskBar m_bar = DiskBar::None;
    std::string m_path; ///< the file that the bar is about
    std::optional<FileStamp> m_acceptedChange; ///< the disk state that the user chose to ignore
    std::optional<FileStamp> m_acceptedDeletion; ///< the file whose deletion the user chose to ignore
    bool m_reloadsByItself = false;
};

} // namespace kevra
