// SPDX-License-Identifier: GPL-3.0-or-later
// Files as text and back; which character set counts is for detection.h to say. A text that was not changed
// gives the bytes it came from, whatever they were; in a changed one every unchanged line keeps its bytes.
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
    TextFormat format; ///< another than was asked for when that could not hold the text
};

[[nodiscard]] DecodedFile decodeFile(std::string_view bytes, TextKind kind);

/// The same; bytes that are plain ASCII with CRLF line breaks become the text, and none are left in `bytes`.
[[nodiscard]] DecodedFile decodeFrom(std::string &bytes, TextKind kind);

/// In a character set that somebody has named; its mark is left out where there is one.
[[nodiscard]] DecodedFile decodeFileAs(std::string_view bytes, TextKind kind, Encoding encoding);

/// Whether the bytes are the text as they stand, whatever the kind: plain ASCII with CRLF line breaks.
[[nodiscard]] bool isTextAsItStands(std::string_view bytes);

/// The same for bytes whose format is known.
[[nodiscard]] std::string decodeFile(std::string_view bytes, const TextFormat &format);

/// `text` as the file should hold it. `format` and `original` are those of the file the text was read from
/// or last written to; a new text has a default format and no original. `wanted` is the format the user has
/// asked for instead. What the encoding cannot hold is never replaced: a page or plain text becomes UTF-8, a
/// script UTF-16 with mark.
[[nodiscard]] EncodedFile encodeFile(std::string_view text, const TextFormat &format,
    std::string_view original, TextKind kind, const std::optional<TextFormat> &wanted = std::nullopt);

/// What encoding takes besides the text, to be used later or elsewhere than on the document.
struct FileForm {
    TextFormat format;
    std::shared_ptr<const std::string> original;
    TextKind kind;
    std::optional<TextFormat> wanted;
};

/// The format that encoding would write a text in which starts with `head`, as far as it can hold the text: a
/// declaration that was changed since the file was read counts.
[[nodiscard]] TextFormat formatToWrite(std::string_view head, const FileForm &form);
/// The format instead of one that cannot hold the text.
[[nodiscard]] TextFormat widerFormat(const TextFormat &format, TextKind kind);

[[nodiscard]] inline EncodedFile encodeFile(std::string_view text, const FileForm &form)
{
    return encodeFile(text, form.format, *form.original, form.kind, form.wanted);
}

} // namespace kevra
