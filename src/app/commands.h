// SPDX-License-Identifier: GPL-3.0-or-later
// The menus and the toolbar as tables: what stands where, what it is called and which command it runs.
#pragma once

#include <span>
#include <string_view>

namespace kevra {

enum class MenuKind {
    Menu, ///< on the menu bar
    HiddenMenu, ///< pops up elsewhere
    Item,
    CheckItem,
    BarItem, ///< a command standing on the menu bar itself
    Separator,
};

/// Rows stand in the order of the window; an item belongs to the menu above it.
struct MenuRow {
    MenuKind kind;
    std::string_view item; ///< object name
    std::string_view caption;
    std::string_view shortcut; ///< in portable form, several separated by "; "
    std::string_view tip;
    std::string_view command; ///< the item whose command is run; empty: its own
};

[[nodiscard]] std::span<const MenuRow> menuRows();

/// A key for a command that stands on a button and not in a menu.
struct KeyRow {
    std::string_view key; ///< in portable form
    std::string_view command;
};

[[nodiscard]] std::span<const KeyRow> keyRows();

/// With which tools a toolbar key is shown.
enum class ToolKeyFor { Both, Web, Script };

struct ToolRow {
    std::string_view key; ///< empty for a separator
    std::string_view item; ///< the menu item whose command it runs
    std::string_view tip; ///< also the accessible name
    int image; ///< the picture at first
    bool lineShown = true; ///< a separator that stands next to another one shows no line
    ToolKeyFor tools = ToolKeyFor::Both;
};

/// The toolbar's buttons and separators; the first one is number 1.
[[nodiscard]] std::span<const ToolRow> toolRows();

/// The file name, without its suffix, of each toolbar picture; pictures are numbered from 1.
[[nodiscard]] std::string_view imageName(int image);

/// The methods the FileSystemObject menu lists, in its order.
[[nodiscard]] std::span<const std::string_view> fsoMethods();

} // namespace kevra
