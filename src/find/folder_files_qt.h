// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

/// Whether folders of version control and package managers, .git and node_modules, are searched.
enum class Folders { WithoutTools, Every };

/// The regular files in `folder` and below whose names match one of the patterns, which are separated by
/// semicolons or blanks; sorted. Hidden folders and links to folders are skipped. `shouldContinue` is called
/// regularly with the number found so far; the result is nothing when it returns false.
[[nodiscard]] std::optional<std::vector<std::string>> filesInFolder(const std::string &folder,
    std::string_view patterns, Folders folders, const std::function<bool(std::size_t found)> &shouldContinue);

} // namespace kevra
