// SPDX-License-Identifier: GPL-3.0-or-later
// The text of a settings file: sections in brackets, with one line per key.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace kevra {

/// By "section/key", or "key" above the first section. UTF-8.
using IniValues = std::map<std::string, std::string, std::less<>>;

struct IniFile {
    IniValues values;
    bool complete = true; ///< false: some lines could not be read and are left out
};

[[nodiscard]] IniFile readIni(std::string_view text);
/// readIni() returns the same values, whichever characters they contain.
[[nodiscard]] std::string iniText(const IniValues &values);

} // namespace kevra
