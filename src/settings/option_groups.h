// SPDX-License-Identifier: GPL-3.0-or-later
// The groups of the settings dialog: what each is called, its controls with their tooltips, the key it writes
// and the state it stands for.
#pragma once

#include "desktop/main_view.h"
#include "editor/document_state.h"
#include "settings/keys.h"
#include "settings/options_shown.h"

#include <array>
#include <string_view>

namespace kevra {

/// A control's object name, and what is said about it: a button's tooltip, an entry's accessible name.
struct GroupControl {
    std::string_view name;
    std::string_view tip;
};

enum class Option { FsoMenu, IfChecking, Autosave, LineDebug, Comments, ColourCoding };

/// An option that is on or off.
struct YesNoGroup {
    Option option;
    std::string_view heading;
    GroupControl yes;
    GroupControl no;
    std::string_view lamp;
    SettingKey key;
    bool OptionsShown::*lampOn;
    bool DocumentState::*flag; ///< null where the state is kept elsewhere
    void (ToolView::*show)(bool on); ///< null where the main window does not show it
};

/// An option that is typed or picked from a list and then applied.
struct EntryGroup {
    std::string_view heading; ///< empty: belongs to the group above
    std::string_view label;
    GroupControl entry;
    GroupControl apply;
};

extern const std::array<YesNoGroup, 6> yesNoGroups;

namespace groups {
extern const EntryGroup tempFolder;
extern const EntryGroup interval;
extern const EntryGroup fontFace;
extern const EntryGroup fontSize;
extern const EntryGroup program;
extern const EntryGroup menuText;
} // namespace groups

/// What the interval box offers, in minutes.
inline constexpr std::array<std::string_view, 10> autosaveIntervals{
    "0", "1", "2", "3", "5", "10", "15", "20", "30", "60"};

} // namespace kevra
