// SPDX-License-Identifier: GPL-3.0-or-later
// From the paths of this program to those of the system's library.
#pragma once

#include <filesystem>
#include <string_view>

namespace kevra {

/// Bytes stay as they are; where the system's paths are made of characters, they are UTF-8.
[[nodiscard]] inline std::filesystem::path systemPath(std::string_view path)
{
    return std::u8string(path.begin(), path.end());
}

} // namespace kevra
