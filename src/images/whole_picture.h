// SPDX-License-Identifier: GPL-3.0-or-later
// Detects truncated picture files. The decoders of JPEG and BMP fill the missing part with grey or noise and
// report no error.
#pragma once

#include <cstdint>
#include <string_view>

namespace kevra {

/// Whether the end marker is there; bytes after it are ignored.
[[nodiscard]] bool isWholeJpeg(std::string_view bytes);

/// Whether all rows that the header declares are there. Compressed files, which have an end mark, count as
/// whole.
[[nodiscard]] bool isWholeBmp(std::string_view header, std::int64_t fileBytes);

/// The part of a BMP file that isWholeBmp() needs as `header`.
inline constexpr std::int64_t bmpHeaderBytes = 54;

} // namespace kevra
