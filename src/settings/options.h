// SPDX-License-Identifier: GPL-3.0-or-later
// The on/off options, one row each: settings key, meaning of a stored text, state flag, menu items and
// pictures, and group in the settings dialog.
#pragma once

#include "desktop/options.h"
#include "editor/editor_options.h"
#include "settings/group_control.h"
#include "settings/keys.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace kevra {

/// Which stored texts, in any case, mean that an option is on.
enum class OnFor { YesOrNone, YesAlone, AllButNo };

/// A toolbar button, counted from 1, and its pictures.
struct OptionButton {
    int number = 0; ///< 0: none
    int on = 0;
    int off = 0;
};

/// What shows the state in the main window; empty names show nothing.
struct OptionMarks {
    std::string_view onItem; ///< checked while it is on
    std::string_view offItem; ///< checked while it is off
    std::array<OptionButton, 2> buttons{};
};

/// The option's line in the settings dialog; none if the heading is empty.
struct OptionGroup {
    std::string_view heading;
    GroupControl yes;
    GroupControl no;
    std::string_view lamp;
};

struct OptionRow {
    Option option;
    SettingKey key;
    OnFor onFor;
    bool EditorOptions::*flag = nullptr; ///< null where the state is kept elsewhere
    OptionMarks marks{};
    OptionGroup group{};
};

inline constexpr std::array<OptionRow, optionCount> optionRows{{
    {.option = Option::FsoMenu,
        .key = {optionsSection, "iffso", "none"},
        .onFor = OnFor::YesOrNone,
        .flag = &EditorOptions::fsoMenu,
        .marks = {.onItem = "mfsoset", .offItem = ""},
        .group = {"FileSystemObject POPUP MENU ACTIVE", {"bfsoyes", "Popup menu when fso. is typed"},
            {"bfsono", "No popup menu"}, "zpop"}},
    {.option = Option::IfChecking,
        .key = {optionsSection, "ifif", "none"},
        .onFor = OnFor::YesOrNone,
        .flag = &EditorOptions::ifChecking,
        .group = {"INCLUDE 'IF-END IF' COUNT IN DEBUGGING (see Help)",
            {"byesdoif", "Check for missing IF or END IF in debugger"},
            {"bnodoif", "Do not check for missing IF or END IF in debugger"}, "zif"}},
    {.option = Option::Autosave,
        .key = {optionsSection, "autosave", "none"},
        .onFor = OnFor::YesAlone,
        .marks = {.onItem = "mauto", .offItem = "", .buttons = {{{26, 17, 18}}}},
        .group = {"AUTOSAVE ON BY DEFAULT", {"bautoyes", "Autosave on at startup"},
            {"bautono", "Autosave off at startup"}, "zauto"}},
    {.option = Option::LineDebug,
        .key = {optionsSection, "ifdebug", "none"},
        .onFor = OnFor::YesOrNone,
        .flag = &EditorOptions::lineDebug,
        .marks = {.onItem = "mdodebug", .offItem = "mnodebug", .buttons = {{{23, 15, 19}, {24, 20, 16}}}},
        .group = {"USE PER-LINE DEBUGGING IN VBSCRIPT AS DEFAULT",
            {"byesdebug", "Line debugged when Return is hit"}, {"bnodebug", "No line debugging"}, "zldebug"}},
    {.option = Option::Comments,
        .key = {optionsSection, "ifcoms", "none"},
        .onFor = OnFor::YesOrNone,
        .flag = &EditorOptions::snippetComments,
        .group = {"INCLUDE COMMENTS IN VBSCRIPT",
            {"byescoms", "Auto-insert buttons include comments where relevant"},
            {"bnocoms", "Do not include comments with auto-insert"}, "zcom"}},
    {.option = Option::ColourCoding,
        .key = {optionsSection, "ifcolor", "none"},
        .onFor = OnFor::AllButNo,
        .flag = &EditorOptions::colourCoding,
        .marks = {.onItem = "mcolcode", .offItem = "mnocolor"},
        .group = {"MAKE TEXT COLOR CODING THE DEFAULT", {"byescol", "Colorcoding on at startup"},
            {"bnocol", "Colorcoding off at startup"}, "zcol"}},
    {.option = Option::KeepIndentation,
        .key = {optionsSection, "keepindent", "yes"},
        .onFor = OnFor::AllButNo,
        .marks = {.onItem = "mkeepindent", .offItem = ""}},
    {.option = Option::AnalyseTyping,
        .key = {optionsSection, "analysetyping", "yes"},
        .onFor = OnFor::AllButNo,
        .marks = {.onItem = "manalysetyping", .offItem = ""}},
    {.option = Option::PageBeside,
        .key = {optionsSection, "pagebeside", "no"},
        .onFor = OnFor::YesAlone,
        .marks = {.onItem = "mbeside", .offItem = ""}},
    {.option = Option::AutoReload,
        .key = {optionsSection, "autoreload", "no"},
        .onFor = OnFor::YesAlone,
        .marks = {.onItem = "mreload", .offItem = ""}},
}};

[[nodiscard]] constexpr const OptionRow &rowOf(Option option)
{
    return optionRows[static_cast<std::size_t>(option)];
}

static_assert(
    std::ranges::all_of(optionRows, [](const OptionRow &row) { return &rowOf(row.option) == &row; }),
    "the rows must be in the order of the options");

[[nodiscard]] bool storedOption(const SettingsStore &store, Option option);
void storeOption(SettingsStore &store, Option option, bool on);

} // namespace kevra
