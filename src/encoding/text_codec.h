// SPDX-License-Identifier: GPL-3.0-or-later
// Decodes files and encodes texts; detection.h decides on the character set. An unchanged text gives exactly
// the bytes it came from; in a changed text every unchanged line keeps its bytes.
#pragma once

#include "encoding/text_format.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kevra {

struct DecodedFile {
    std::string text; ///< UTF-8 with CRLF line breaks
    TextFormat format;
};

struct EncodedFile {
    std::string bytes;
    TextFormat format; ///< differs from the requested one if that cannot represent the text
};

[[nodiscard]] DecodedFile decodeFile(std::string_view bytes, TextKind kind);

/// The same, but plain ASCII with CRLF line breaks is moved out of `bytes` instead of copied.
[[nodiscard]] DecodedFile decodeFrom(std::string &bytes, TextKind kind);

/// Decodes in a character set that the user has chosen; a byte-order mark is removed.
[[nodiscard]] DecodedFile decodeFileAs(std::string_view bytes, TextKind kind, Encoding encoding);

/// Whether decoding leaves the bytes unchanged for every kind: plain ASCII with CRLF line breaks.
[[nodiscard]] bool decodesUnchanged(std::string_view bytes);

/// Decodes bytes whose format is known.
[[nodiscard]] std::string decodeFile(std::string_view bytes, const TextFormat &format);

/// The file to write for `text`. `format` and `original` belong to the file that the text was read from or
/// last written to; a new text has a default format and no original. `wanted` is another format that the user
/// has chosen. Characters that the encoding cannot represent are never replaced: a page or plain text becomes
/// UTF-8 instead, a script UTF-16 with mark.
[[nodiscard]] EncodedFile encodeFile(std::string_view text, const TextFormat &format,
    std::string_view original, TextKind kind, const std::optional<TextFormat> &wanted = std::nullopt);

/// The arguments of encodeFile() besides the text, for encoding later or on another thread.
struct FileForm {
    TextFormat format;
    std::shared_ptr<const std::string> original;
    TextKind kind;
    std::optional<TextFormat> wanted;
};

/// The format in which encodeFile() would write a text that starts with `head`, if it can represent the text.
/// A declaration that was changed since reading is followed.
[[nodiscard]] TextFormat formatToWrite(std::string_view head, const FileForm &form);
/// The format to use instead of one that cannot represent the text.
[[nodiscard]] TextFormat widerFormat(const TextFormat &format, TextKind kind);

[[nodiscard]] inline EncodedFile encodeFile(std::string_view text, const FileForm &form)
{
    return encodeFile(text, form.format, *form.original, form.kind, form.wanted);
}

} // namespace kevra
