// SPDX-License-Identifier: GPL-3.0-or-later
// Lengths in the logic and the settings store are in twips: 15 per device-independent pixel.
#pragma once

namespace kevra {

inline constexpr int twipsPerPixel = 15;

/// A rectangle in twips.
struct TwipRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    [[nodiscard]] constexpr int bottom() const { return top + height; }
    [[nodiscard]] constexpr int right() const { return left + width; }
    friend constexpr bool operator==(const TwipRect &, const TwipRect &) = default;
};

} // namespace kevra
