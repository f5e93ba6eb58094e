// SPDX-License-Identifier: GPL-3.0-or-later
// The faces and sizes the font boxes list, and which entry a stored text selects.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kevra {

inline constexpr std::array<std::string_view, 5> fontFaces{
    "Arial", "Courier New", "MS Sans Serif", "Tahoma", "Verdana"};
inline constexpr std::array<std::string_view, 4> fontSizes{"8", "10", "12", "14"};

struct FontChoice {
    int position = 0; ///< in the box, from 0
    std::string text; ///< the face or size itself; a text the box does not list is kept
};

/// "no" selects "Courier New"; a face that is not listed selects the last entry.
[[nodiscard]] FontChoice chosenFace(std::string_view stored);
/// "no" selects "10"; a size that is not listed selects the last entry.
[[nodiscard]] FontChoice chosenSize(std::string_view stored);

} // namespace kevra
