// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

/// The regular files in `folder` and below whose names fit one of the patterns, which semicolons or blanks
/// separate; sorted. Hidden folders and links to folders are passed over. `shouldContinue` is asked now and
/// then with the number found so far; nothing when it says no.
[[nodiscard]] std::optional<std::vector<std::string>> filesInFolder(const std::string &folder,
    std::string_view patterns, const std::function<bool(std::size_t found)> &shouldContinue);

} // namespace kevra
