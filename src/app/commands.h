// SPDX-License-Identifier: GPL-3.0-or-later
// The menus and the toolbar as tables: position, caption and command.
#pragma once

#include <span>
#include <string_view>

namespace kevra {

enum class MenuKind {
    Menu, ///< on the menu bar
    HiddenMenu, ///< pops up elsewhere
    Item,
    CheckItem,
    BarItem, ///< a command on the menu bar itself
    Separator,
};

/// In display order; an item belongs to the last menu before it.
struct MenuRow {
    MenuKind kind;
    std::string_view item; ///< object name
    std::string_view caption;
    std::string_view shortcut; ///< in portable form, several separated by "; "
    std::string_view tip;
    std::string_view command; ///< the item whose command is run; empty: its own
};

[[nodiscard]] std::span<const MenuRow> menuRows();

/// A key for a command that is on a button but not in a menu.
struct KeyRow {
    std::string_view key; ///< in portable form
    std::string_view command;
};

[[nodiscard]] std::span<const KeyRow> keyRows();

/// The tool set that a toolbar button belongs to.
enum class ButtonFor { Both, Web, Script };

struct ToolRow {
    std::string_view button; ///< object name; empty for a separator
    std::string_view item; ///< the menu item whose command it runs
    std::string_view tip; ///< also the accessible name
    int image; ///< the initial picture
    bool lineShown = true; ///< false for a separator next to another one
    ButtonFor tools = ButtonFor::Both;
};

/// The toolbar's buttons and separators; the first one is number 1.
[[nodiscard]] std::span<const ToolRow> toolRows();

/// The file name, without its suffix, of each toolbar picture; pictures are numbered from 1.
[[nodiscard]] std::string_view imageName(int image);

/// The methods in the FileSystemObject menu, in display order.
[[nodiscard]] std::span<const std::string_view> fsoMethods();

} // namespace kevra
