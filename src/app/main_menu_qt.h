// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's menus, built from their table. Actions and menus carry the item's name as object name.
#pragma once

#include "app/command_registry.h"

#include <QtCore/QObject>

#include <map>
#include <string>
#include <string_view>

class QAction;
class QMenu;
class QMenuBar;
class QWidget;

namespace kevra {

class MainMenu : public QObject {
public:
    /// Items run their command from `commands`, which must outlive the menus.
    MainMenu(QMenuBar &bar, QWidget &window, const CommandRegistry &commands);

    [[nodiscard]] QMenu *menu(std::string_view item) const; ///< null if there is none
    [[nodiscard]] QAction *action(std::string_view item) const; ///< also of a menu; null if there is none
    void enableBoundItems();
    /// Every item that runs the command of `item`.
    void setEnabled(std::string_view item, bool enabled);

private:
    void addCommand(const struct MenuRow &row, QWidget &place);

    QWidget &m_window;
    const CommandRegistry &m_commands;
    std::map<std::string, QMenu *, std::less<>> m_menus;
    std::map<std::string, QAction *, std::less<>> m_actions;
};

} // namespace kevra
