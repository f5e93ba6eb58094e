// SPDX-License-Identifier: GPL-3.0-or-later
// Decodes GIF, JPEG, BMP and ICO files, recognised by their content, with the decoders of the desktop.
// Refuses pictures so large that they would fill the memory.
#pragma once

#include "images/image_commands.h"

#include <QtGui/QImage>

namespace kevra {

class PictureDecoderQt : public PictureSizes {
public:
    /// Read from the header, without decoding the picture.
    [[nodiscard]] std::optional<PictureSize> sizeOf(const std::string &path) const override;
    /// Transparent parts become white. Nothing if the picture cannot be decoded completely.
    [[nodiscard]] std::optional<QImage> decode(const std::string &path) const;
};

} // namespace kevra
