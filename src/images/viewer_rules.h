// SPDX-License-Identifier: GPL-3.0-or-later
// The size of the image viewer for a picture, and its texts. Lengths in twips.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kevra {

struct PictureSize {
    int width = 0; ///< in the picture's own pixels
    int height = 0;

    friend bool operator==(const PictureSize &, const PictureSize &) = default;
};

struct ViewerPlan {
    std::int64_t width = 0;
    std::int64_t height = 0; ///< with the title bar
    std::string_view caption;
};

/// The picture's size, cut to 85 percent of the screen's height and 90 of its width.
[[nodiscard]] ViewerPlan viewerPlan(PictureSize picture, std::int64_t screenWidth, std::int64_t screenHeight);

inline constexpr int titleBarTwips = 375;

/// File name and size in whole KB.
[[nodiscard]] std::string pictureInformation(std::string_view name, std::int64_t bytes);

enum class ImageType { Web, Other, NotAccepted };
/// By the extension: GIF and JPG are for web pages, BMP and ICO only for viewing.
[[nodiscard]] ImageType imageType(std::string_view path);

} // namespace kevra
