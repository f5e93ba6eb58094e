// SPDX-License-Identifier: GPL-3.0-or-later
// Files as text and back. Bytes are read by their byte-order mark, by the character set a page declares, as
// UTF-8, else as Windows-1252. A text that was not changed gives the bytes it came from, whatever they were;
// in a changed one every unchanged line keeps its bytes.
#pragma once

#include "encoding/text_format.h"

#include <string>
#include <string_view>

namespace kevra {

struct DecodedFile {
    std::string text; ///< UTF-8 with CRLF line breaks
    TextFormat format;
};

struct EncodedFile {
    std::string bytes;
    TextFormat format; ///< another than was asked for when that could not hold the text
};

[[nodiscard]] DecodedFile decodeFile(std::string_view bytes, TextKind kind);

/// The same; bytes that are plain ASCII with CRLF line breaks become the text, and none are left in `bytes`.
[[nodiscard]] DecodedFile decodeFrom(std::string &bytes, TextKind kind);

/// Whether the bytes are the text as they stand: plain ASCII with CRLF line breaks, whatever the kind.
[[nodiscard]] bool isTextAsItStands(std::string_view bytes);

/// The same for bytes whose format is known.
[[nodiscard]] std::string decodeFile(std::string_view bytes, const TextFormat &format);

/// `text` as the file should hold it. `format` and `original` are those of the file the text was read from
/// or last written to; a new text has a default format and no original. What the encoding cannot hold is
/// never replaced: a page or plain text becomes UTF-8, a script UTF-16 with mark.
[[nodiscard]] EncodedFile encodeFile(
    std::string_view text, const TextFormat &format, std::string_view original, TextKind kind);

} // namespace kevra
