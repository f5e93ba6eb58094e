// SPDX-License-Identifier: GPL-3.0-or-later
// Whether a picture file has been cut off. The decoders of JPEG and BMP fill what is missing with grey or
// noise and do not tell.
#pragma once

#include <cstdint>
#include <string_view>

namespace kevra {

/// Up to the marker of its end; what follows that is of no concern.
[[nodiscard]] bool isWholeJpeg(std::string_view bytes);

/// As many rows as the header says; the packed kinds, which have an end mark, are taken as whole.
[[nodiscard]] bool isWholeBmp(std::string_view header, std::int64_t fileBytes);

/// As much of a BMP file as tells how long it must be.
inline constexpr std::int64_t bmpHeaderBytes = 54;

} // namespace kevra
