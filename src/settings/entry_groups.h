// SPDX-License-Identifier: GPL-3.0-or-later
// The groups of the settings dialog whose option is typed or picked from a list and then applied.
#pragma once

#include "settings/group_control.h"

#include <array>
#include <string_view>

namespace kevra {

struct EntryGroup {
    std::string_view heading; ///< empty: belongs to the group above
    std::string_view label;
    GroupControl entry;
    GroupControl apply;
};

namespace groups {
inline constexpr EntryGroup tempFolder{"ENTER NEW WEBPAGE TEMP FOLDER (see Help)", "",
    {"ttemp", "Webpage temp folder"}, {"btemp", "Set folder to save new files to when viewing page"}};
inline constexpr EntryGroup interval{"SET AUTOSAVE INTERVAL (MINUTES)", "", {"boxtime", "Autosave interval"},
    {"btime", "Frequency to autosave text"}};
inline constexpr EntryGroup fontFace{
    "SET DEFAULT FONT FACE", "", {"boxface", "Default font face"}, {"bface", "Set font"}};
inline constexpr EntryGroup fontSize{
    "SET DEFAULT FONT SIZE", "", {"boxsize", "Default font size"}, {"bsize", "Set font size"}};
inline constexpr EntryGroup program{"SET PROGRAM FOR 'EXE' MENU OPTION",
    "Enter full path of program executable that you'd like a menu shortcut for.", {"tap", "Program path"},
    {"bapset", "Set EXE program"}};
inline constexpr EntryGroup menuText{"", "Enter the name you want to see on the menu, up to 8 letters.",
    {"tmenu", "Menu text"}, {"bmenuset", "Set menu text for EXE function"}};
} // namespace groups

/// What the interval box offers, in minutes.
inline constexpr std::array<std::string_view, 10> autosaveIntervals{
    "0", "1", "2", "3", "5", "10", "15", "20", "30", "60"};

} // namespace kevra
