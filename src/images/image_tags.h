// SPDX-License-Identifier: GPL-3.0-or-later
// The tags that name an image. What the user fills in is left empty.
#pragma once

#include "images/viewer_rules.h"

namespace kevra {

[[nodiscard]] inline std::string imageTag(std::string_view name, PictureSize size, std::string_view more = {})
{
    return "<IMG SRC=\"" + std::string(name) + "\" WIDTH=" + std::to_string(size.width)
        + " HEIGHT=" + std::to_string(size.height) + " ALIGN= HSPACE= VSPACE=" + std::string(more) + ">";
}

[[nodiscard]] inline std::string linkedImageTag(std::string_view name, PictureSize size)
{
    return "<A HREF=>" + imageTag(name, size, " ALT=") + "</A>";
}

[[nodiscard]] inline std::string bodyBackgroundTag(std::string_view name)
{
    return "<BODY BACKGROUND=\"" + std::string(name) + "\" TEXT= LINK= ALINK= VLINK=>";
}

} // namespace kevra
