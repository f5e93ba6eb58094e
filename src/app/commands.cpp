// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands.h"

#include "settings/options.h"

#include <algorithm>
#include <array>

namespace kevra {

namespace {

using enum MenuKind;

constexpr MenuRow separator{Separator, {}, {}, {}, {}, {}};

constexpr auto menus = std::to_array<MenuRow>({
    {Menu, "mfile", "&File", "", "", ""},
    {Item, "mnewfile", "&New File", "Ctrl+N", "Start a new file", ""},
    {Item, "mopenfile", "&Open File", "Ctrl+O", "Open a file", ""},
    separator,
    {Item, "msaveplain", "&Save", "Ctrl+S", "Save the file", ""},
    {Item, "msaveas", "Save &As", "Ctrl+Shift+S", "Save under a name", ""},
    {Item, "mversions", "&Versions...", "", "Show the versions that are kept of this text", ""},
    separator,
    {Item, "mprint", "&Print", "Ctrl+P", "Print the selection, or everything", ""},
    separator,
    {Item, "mexit", "E&xit", "Ctrl+Q", "Close the program", ""},

    {HiddenMenu, "mpop", "popup", "", "", ""},
    {Item, "popundo", "&Undo", "", "", "mundo"},
    separator,
    {Item, "popcut", "&Cut", "", "", "mcut"},
    {Item, "popcopy", "C&opy", "", "", "mcopy"},
    {Item, "poppaste", "&Paste", "", "", "mpaste"},
    separator,
    {Item, "popall", "&Select All", "", "", "mselall"},

    {Menu, "medit", "&Edit", "", "", ""},
    {Item, "mundo", "&Undo", "Ctrl+Z", "Undo the last change", ""},
    {Item, "mredo", "&Redo", "Ctrl+Y; Ctrl+Shift+Z", "Redo what was undone", ""},
    separator,
    {Item, "mcut", "&Cut", "Ctrl+X", "Cut the selection to the clipboard", ""},
    {Item, "mcopy", "C&opy", "Ctrl+C", "Copy the selection to the clipboard", ""},
    {Item, "mpaste", "&Paste", "Ctrl+V", "Insert the clipboard's text", ""},
    separator,
    {Item, "mselall", "&Select All", "Ctrl+A", "Select the whole text", ""},
    {Item, "mclear", "C&lear", "", "Delete the whole text", ""},
    separator,
    {Item, "mcomment", "Co&mment Lines", "Ctrl+/",
        "Make comments of the selected lines, or take the marks off", ""},
    {Item, "mlineup", "Move Lines Up", "Alt+Up", "Move the selected lines up", ""},
    {Item, "mlinedown", "Move Lines Down", "Alt+Down", "Move the selected lines down", ""},
    {Item, "mlinecopy", "&Duplicate Lines", "Ctrl+Shift+D", "Put a copy of the selected lines below", ""},
    {Item, "mlinedelete", "Delete Lines", "Ctrl+Shift+K", "Delete the selected lines", ""},
    {CheckItem, "mkeepindent", "&Keep Indentation", "", "Begin a new line as far in as the one above", ""},
    separator,
    {CheckItem, "mwrap", "&Wordwrap", "Alt+Z", "Wrap lines at the window's width", ""},
    separator,
    {Item, "mfind", "&Find and Replace", "Ctrl+F; Ctrl+H", "Find and replace in the text", ""},
    {Item, "mmulti", "&Multi-Page Replace", "Ctrl+Shift+H", "Replace in many files", ""},
    {Item, "mgoto", "&Go to Line", "Ctrl+G", "Go to a line by its number", ""},
    separator,
    {Item, "mtemplate", "&Start with Template", "Ctrl+Shift+N", "Start a new page from the template", ""},

    {Menu, "moptions", "&Options", "", "", ""},
    {CheckItem, "mscrshow", "Scripting &Editor", "Ctrl+2", "Show the script tools", ""},
    {CheckItem, "mwebback", "&HTML/Text Editor", "Ctrl+1", "Show the web page tools", ""},
    separator,
    {Item, "mhidetools", "Hide &Toolbars", "", "Hide the button panels", ""},
    {Item, "mshowtools", "&Show Toolbars", "", "Show the button panels", ""},
    separator,
    {CheckItem, "mcolcode", "&Color Code Text", "", "Color tags and keywords", ""},
    {CheckItem, "mnocolor", "&No Color Coding", "", "Show the text in black", ""},
    separator,
    {CheckItem, "mauto", "&Autosave", "", "Save a copy at intervals", ""},
    {CheckItem, "mfsoset", "&FileSystemObject Popup", "", "Offer method names when fso. is typed", ""},
    separator,
    {CheckItem, "mreload", "Reload C&hanged Files", "", "An unedited document follows its file", ""},
    {CheckItem, "mbeside", "Page &Beside the Text", "Ctrl+F5", "Show the page next to its text", ""},
    {Item, "manalyse", "Anal&yse Scripts", "", "Look for faults in the scripts of this text", ""},
    {Item, "msettings", "S&ettings", "Ctrl+,", "Change the settings", ""},
    {Item, "mpad", "Clipping &Pad", "Ctrl+D", "Show the clipping pad", ""},
    {Item, "mcolorfind", "&Color Finder", "", "Choose a color and copy its code", ""},
    {Item, "mmsgboxref", "&MsgBox Ref.", "", "Show the message box constants", ""},

    {Menu, "mdebug", "&Debug", "", "", ""},
    {CheckItem, "mdodebug", "&Use Line Debugging", "", "Check each line when Return is hit", ""},
    {CheckItem, "mnodebug", "&No Line Debugging", "", "Do not check lines while typing", ""},
    separator,
    {Item, "mrundebug", "&Run Debugger", "F8", "Check the whole script", ""},
    separator,
    {CheckItem, "mfindings", "&Findings", "F9", "Show the list of what the analysis has found", ""},
    {Item, "mnextfinding", "Ne&xt Finding", "F4", "Go to the next finding", ""},
    {Item, "mprevfinding", "&Previous Finding", "Shift+F4", "Go to the finding before", ""},
    {Item, "mfix", "F&ix at the Caret...", "Alt+Return", "Offer the fixes of the finding at the caret", ""},
    {CheckItem, "manalysetyping", "Analyse &While Typing", "", "Analyse a script in the pauses", ""},

    {Menu, "mimops", "&Graphics", "", "", ""},
    {Item, "msample", "&View Image", "Ctrl+I", "View an image", ""},

    {BarItem, "mex", "&EXE", "", "Start the external program", ""},
    {BarItem, "mabout", "&About", "", "About the program", ""},

    {Menu, "mhelp", "&Help", "", "", ""},
    {Item, "mcallhelp", "&KEVRA Help", "F1", "Show the help page", ""},
    {Item, "mvbsinfo", "&VBScript Info", "Shift+F1", "Show the VBScript reference page", ""},

    {HiddenMenu, "mpopfso", "popup", "", "", ""},
});

constexpr auto shortcuts = std::to_array<KeyRow>({{"F5", "bview"}});

constexpr ToolRow gap{{}, {}, {}, 0};
constexpr ToolRow secondGap{{}, {}, {}, 0, false};
constexpr ToolRow webGap{{}, {}, {}, 0, false, ButtonFor::Web};
constexpr ToolRow scriptGap{{}, {}, {}, 0, true, ButtonFor::Script};

constexpr auto tools = std::to_array<ToolRow>({
    {"openb", "mopenfile", "OPEN FILE", 1},
    {"saveb", "msaveas", "SAVE AS", 2},
    {"printb", "mprint", "PRINT", 3},
    gap,
    {"cutb", "mcut", "CUT", 4},
    {"copyb", "mcopy", "COPY", 5},
    {"pasteb", "mpaste", "PASTE", 6},
    gap,
    {"textb", "mpad", "CLIPPING PAD", 7},
    gap,
    {"fandsb", "mfind", "FIND AND REPLACE", 8},
    {"multirb", "mmulti", "MULTI-PAGE REPLACE", 9},
    gap,
    {"retagb", "mcolcode", "COLOR CODE TEXT", 10},
    {"reblackb", "mnocolor", "NO COLOR CODING", 11},
    gap,
    secondGap,
    {"colfindb", "mcolorfind", "COLOR FINDER", 12, true, ButtonFor::Web},
    {"viewimb", "msample", "VIEW IMAGE", 13, true, ButtonFor::Web},
    webGap,
    {"debugb", "mrundebug", "RUN DEBUGGER", 14, true, ButtonFor::Script},
    scriptGap,
    {"lineyesb", "mdodebug", "USE LINE DEBUGGING", 15, true, ButtonFor::Script},
    {"linenob", "mnodebug", "NO LINE DEBUGGING", 20, true, ButtonFor::Script},
    gap,
    {"autob", "mauto", "AUTOSAVE", 18},
});

constexpr auto images = std::to_array<std::string_view>({"open", "save", "print", "cut", "copy", "paste",
    "pad", "find", "multi", "colour", "black", "colour-finder", "image", "debug", "line-on", "line-off",
    "autosave-on", "autosave-off", "line-on-rest", "line-off-rest"});

constexpr auto methods = std::to_array<std::string_view>({"FileExists", "FolderExists", "DriveExists",
    "GetFile", "GetFolder", "GetDrive", "GetTempName", "GetBaseName", "GetExtensionName",
    "GetParentFolderName", "GetAbsolutePathName", "CopyFile", "CopyFolder", "MoveFile", "DeleteFile",
    "DeleteFolder", "CreateFolder", "CreateTextFile", "OpenTextFile"});

// Rows that name a row of another table.
constexpr bool isItem(std::string_view name)
{
    return std::ranges::any_of(menus, [&](const MenuRow &row) { return !name.empty() && row.item == name; });
}

constexpr bool isImage(int number)
{
    return number >= 1 && number <= static_cast<int>(images.size());
}

static_assert(std::ranges::all_of(
    menus, [](const MenuRow &row) { return row.command.empty() || isItem(row.command); }));
static_assert(std::ranges::all_of(tools,
    [](const ToolRow &row) { return row.button.empty() || (isItem(row.item) && isImage(row.image)); }));
static_assert(std::ranges::all_of(optionRows, [](const OptionRow &option) {
    const auto &marks = option.marks;
    return std::ranges::all_of(marks.buttons, [&](const OptionButton &button) {
        if (button.number == 0)
            return true;
        const auto &item = tools[static_cast<std::size_t>(button.number - 1)].item;
        return (item == marks.onItem || item == marks.offItem) && isImage(button.on) && isImage(button.off);
    });
}));

} // namespace

std::span<const MenuRow> menuRows()
{
    return menus;
}

std::span<const KeyRow> keyRows()
{
    return shortcuts;
}

std::span<const ToolRow> toolRows()
{
    return tools;
}

std::string_view imageName(int image)
{
    return images[static_cast<std::size_t>(image - 1)];
}

std::span<const std::string_view> fsoMethods()
{
    return methods;
}

} // namespace kevra
