// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/viewer_rules.h"

#include "desktop/geometry.h"
#include "text/paths.h"

namespace kevra {

namespace {

constexpr std::string_view wholeCaption = "VIEW IMAGE";
constexpr std::string_view croppedCaption = "VIEW IMAGE - Note: Image has been cropped to fit screen.";
constexpr std::int64_t heightPercent = 85;
constexpr std::int64_t widthPercent = 90;

/// Compares without rounding: a hundredth of a twip over the limit is over the limit.
void crop(std::int64_t &length, std::int64_t screen, std::int64_t percent, std::string_view &caption)
{
    if (screen * percent >= length * 100)
        return;
    length = screen * percent / 100;
    caption = croppedCaption;
}

} // namespace

ViewerPlan viewerPlan(PictureSize picture, std::int64_t screenWidth, std::int64_t screenHeight)
{
    ViewerPlan plan{std::int64_t{picture.width} * twipsPerPixel,
        std::int64_t{picture.height} * twipsPerPixel + titleBarTwips, wholeCaption};
    crop(plan.height, screenHeight, heightPercent, plan.caption);
    crop(plan.width, screenWidth, widthPercent, plan.caption);
    return plan;
}

std::string pictureInformation(std::string_view name, std::int64_t bytes)
{
    return std::string(name) + " - " + std::to_string(bytes / 1024) + " KB";
}

ImageType imageType(std::string_view path)
{
    const auto type = upperAscii(extension(path));
    if (type == "GIF" || type == "JPG")
        return ImageType::Web;
    return type == "BMP" || type == "ICO" ? ImageType::Other : ImageType::NotAccepted;
}

} // namespace kevra
