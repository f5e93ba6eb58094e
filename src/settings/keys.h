// SPDX-License-Identifier: GPL-3.0-or-later
// The keys of the settings store and their defaults, except the on/off options.
#pragma once

#include "storage/setting_key.h"
#include "tools/program_keys.h"

namespace kevra {

namespace keys {
inline constexpr SettingKey autosaveMinutes{optionsSection, "automins", "0"};
inline constexpr SettingKey tempFolder{optionsSection, "tempfol", "none"};
inline constexpr SettingKey codeColour{optionsSection, "codecolor", "no"};
inline constexpr SettingKey firstStart{optionsSection, "if1", "yes"};
inline constexpr SettingKey findingsLevel{optionsSection, "findingslevel", "hint"};
inline constexpr SettingKey fontFace{optionsSection, "fontface", "no"};
inline constexpr SettingKey fontSize{optionsSection, "fontsize", "no"};

inline constexpr SettingKey editorState{windowsSection, "edsize", "no"};
inline constexpr SettingKey editorTop{windowsSection, "edt", "no"};
inline constexpr SettingKey editorLeft{windowsSection, "edl", "no"};
inline constexpr SettingKey editorWidth{windowsSection, "edw", "no"};
inline constexpr SettingKey editorHeight{windowsSection, "edh", "no"};
inline constexpr SettingKey padTop{windowsSection, "padt", "no"};
inline constexpr SettingKey padLeft{windowsSection, "padl", "no"};
inline constexpr SettingKey padWidth{windowsSection, "padw", "no"};
inline constexpr SettingKey padHeight{windowsSection, "padh", "no"};
inline constexpr SettingKey besideWidth{windowsSection, "besidew", "no"};
inline constexpr SettingKey panelType{windowsSection, "wintype", "none"};
} // namespace keys

} // namespace kevra
