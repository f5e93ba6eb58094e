// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/option_groups.h"

namespace kevra {

const std::array<YesNoGroup, 6> yesNoGroups{{
    {Option::FsoMenu, "FileSystemObject POPUP MENU ACTIVE", {"bfsoyes", "Popup menu when fso. is typed"},
        {"bfsono", "No popup menu"}, "zpop", keys::fsoMenu, &OptionsShown::zpop, &DocumentState::fsoMenu,
        &ToolView::showFsoMenu},
    {Option::IfChecking, "INCLUDE 'IF-END IF' COUNT IN DEBUGGING (see Help)",
        {"byesdoif", "Check for missing IF or END IF in debugger"},
        {"bnodoif", "Do not check for missing IF or END IF in debugger"}, "zif", keys::ifCheck,
        &OptionsShown::zif, &DocumentState::ifChecking, nullptr},
    {Option::Autosave, "AUTOSAVE ON BY DEFAULT", {"bautoyes", "Autosave on at startup"},
        {"bautono", "Autosave off at startup"}, "zauto", keys::autosave, &OptionsShown::zauto, nullptr,
        &ToolView::showAutosave},
    {Option::LineDebug, "USE PER-LINE DEBUGGING IN VBSCRIPT AS DEFAULT",
        {"byesdebug", "Line debugged when Return is hit"}, {"bnodebug", "No line debugging"}, "zldebug",
        keys::lineDebug, &OptionsShown::zldebug, &DocumentState::lineDebugOn, &ToolView::showLineDebugging},
    {Option::Comments, "INCLUDE COMMENTS IN VBSCRIPT",
        {"byescoms", "Auto-insert buttons include comments where relevant"},
        {"bnocoms", "Do not include comments with auto-insert"}, "zcom", keys::comments, &OptionsShown::zcom,
        &DocumentState::snippetComments, nullptr},
    {Option::ColourCoding, "MAKE TEXT COLOR CODING THE DEFAULT", {"byescol", "Colorcoding on at startup"},
        {"bnocol", "Colorcoding off at startup"}, "zcol", keys::colourCoding, &OptionsShown::zcol,
        &DocumentState::colourCoding, &ToolView::showColourCoding},
}};

namespace groups {

const EntryGroup tempFolder{"ENTER NEW WEBPAGE TEMP FOLDER (see Help)", "", {"ttemp", "Webpage temp folder"},
    {"btemp", "Set folder to save new files to when viewing page"}};
const EntryGroup interval{"SET AUTOSAVE INTERVAL (MINUTES)", "", {"boxtime", "Autosave interval"},
    {"btime", "Frequency to autosave text"}};
const EntryGroup fontFace{
    "SET DEFAULT FONT FACE", "", {"boxface", "Default font face"}, {"bface", "Set font"}};
const EntryGroup fontSize{
    "SET DEFAULT FONT SIZE", "", {"boxsize", "Default font size"}, {"bsize", "Set font size"}};
const EntryGroup program{"SET PROGRAM FOR 'EXE' MENU OPTION",
    "Enter full path of program executable that you'd like a menu shortcut for.", {"tap", "Program path"},
    {"bapset", "Set EXE program"}};
const EntryGroup menuText{"", "Enter the name you want to see on the menu, up to 8 letters.",
    {"tmenu", "Menu text"}, {"bmenuset", "Set menu text for EXE function"}};

} // namespace groups

} // namespace kevra
