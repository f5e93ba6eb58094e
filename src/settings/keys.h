// SPDX-License-Identifier: GPL-3.0-or-later
// Every key of the settings store: where it stands and what is read when it was never stored.
#pragma once

#include <string_view>

namespace kevra {

inline constexpr std::string_view settingsApplication = "kevra285";
inline constexpr std::string_view optionsSection = "settings";
inline constexpr std::string_view windowsSection = "windows";

/// What an absent temporary folder means.
inline constexpr std::string_view defaultTempFolder = R"(C:\My Documents)";

struct SettingKey {
    std::string_view section;
    std::string_view name;
    std::string_view fallback;
};

namespace keys {
inline constexpr SettingKey ifCheck{optionsSection, "ifif", "none"};
inline constexpr SettingKey fsoMenu{optionsSection, "iffso", "none"};
inline constexpr SettingKey autosave{optionsSection, "autosave", "none"};
inline constexpr SettingKey autosaveMinutes{optionsSection, "automins", "0"};
inline constexpr SettingKey tempFolder{optionsSection, "tempfol", "none"};
inline constexpr SettingKey colourCoding{optionsSection, "ifcolor", "none"};
inline constexpr SettingKey codeColour{optionsSection, "codecolor", "no"};
inline constexpr SettingKey comments{optionsSection, "ifcoms", "none"};
inline constexpr SettingKey lineDebug{optionsSection, "ifdebug", "none"};
inline constexpr SettingKey firstStart{optionsSection, "if1", "yes"};
inline constexpr SettingKey programPath{optionsSection, "aptorun", "no"};
inline constexpr SettingKey programMenu{optionsSection, "exemenu", "no"};
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
inline constexpr SettingKey panelType{windowsSection, "wintype", "none"};
} // namespace keys

} // namespace kevra
