// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures by the desktop's decoders, by what is in the file: GIF, JPEG, BMP and ICO, and none so large that
// it would fill the memory.
#pragma once

#include "images/image_commands.h"

#include <QtGui/QImage>

namespace kevra {

class PictureDecoderQt : public PictureSizes {
public:
    /// Without decoding the picture where its header tells.
    [[nodiscard]] std::optional<PictureSize> sizeOf(const std::string &path) const override;
    /// What is transparent is white; nothing when the picture cannot be decoded whole.
    [[nodiscard]] std::optional<QImage> decode(const std::string &path) const;
};

} // namespace kevra
