// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

/// Whether the folders of version control and package managers, .git and node_modules, are looked into.
enum class Folders { WithoutTools, Every };

/// The regular files in `folder` and below whose names fit one of the patterns, which semicolons or blanks
/// separate; sorted. Hidden folders and links to folders are passed over. `shouldContinue` is asked now and
/// then with the number found so far; nothing when it says no.
[[nodiscard]] std::optional<std::vector<std::string>> filesInFolder(const std::string &folder,
    std::string_view patterns, Folders folders, const std::function<bool(std::size_t found)> &shouldContinue);

} // namespace kevra
