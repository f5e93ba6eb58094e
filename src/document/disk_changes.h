// SPDX-License-Identifier: GPL-3.0-or-later
// What the user is told, and can do, when another program changes the document's file: a bar that asks
// nothing. The rules of saving stay as they are.
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
    Replaced, ///< a save took the place of another program's version: Compare, Put Back, Close
};

/// Two texts to be looked at beside each other.
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

    /// The file may have changed, the document may be another one, or it has been saved.
    void check();
    /// An unedited document follows its file without a question.
    void setReloadsByItself(bool on) { m_reloadsByItself = on; }

    // The bar's buttons.
    void reload();
    void keepMine();
    void compare();
    void putBack();
    void close();

    [[nodiscard]] DiskBar bar() const { return m_bar; }

private:
    void show(DiskBar bar);
    [[nodiscard]] DiskBar wanted();

    FileCommandPorts m_ports;
    OpenCommands &m_opening;
    DiskChangeView &m_view;
    DiskBar m_bar = DiskBar::None;
    std::string m_path; ///< the bar's file
    std::optional<FileStamp> m_kept; ///< the state on the disk that the user has chosen to leave
    std::optional<FileStamp> m_goneKept; ///< the document's file that the user knows to be gone
    bool m_reloadsByItself = false;
};

} // namespace kevra
