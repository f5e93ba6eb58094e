// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/text_codec.h"

#include "encoding/declared_charset.h"
#include "encoding/detection.h"
#include "encoding/line_ends.h"
#include "encoding/original_text.h"
#include "encoding/transcoding.h"

#include <utility>

namespace kevra {
namespace {

/// If the bytes need no conversion, they are moved out of `owned`, which may be null.
DecodedFile decoded(std::string_view bytes, const TextFormat &format, std::string *owned)
{
    DecodedFile file{{}, format};
    const OriginalText original(bytes, format);
    file.format.lineEnds = lineEndsOf(original.view());
    file.format.rawBytes = original.hasRawBytes();
    if (owned && file.format.lineEnds == LineEnds::CrLf && original.isViewOf(bytes) && isAscii(bytes))
        file.text = std::exchange(*owned, {});
    else
        file.text = toCrLf(original.view(), file.format.lineEnds);
    return file;
}

TextFormat detectedFormat(std::string_view bytes, TextKind kind)
{
    const auto found = detect(bytes, kind);
    return {.encoding = found.encoding,
        .mark = found.mark,
        .lineEnds = LineEnds::None,
        .declared = found.declared,
        .guessed = found.guessed,
        .named = false,
        .rawBytes = false};
}

} // namespace

DecodedFile decodeFile(std::string_view bytes, TextKind kind)
{
    return decoded(bytes, detectedFormat(bytes, kind), nullptr);
}

DecodedFile decodeFrom(std::string &bytes, TextKind kind)
{
    return decoded(bytes, detectedFormat(bytes, kind), &bytes);
}

DecodedFile decodeFileAs(std::string_view bytes, TextKind kind, Encoding encoding)
{
    const auto mark = markOf(encoding);
    TextFormat format;
    format.encoding = encoding;
    format.named = true;
    format.mark = !mark.empty() && bytes.starts_with(mark);
    auto file = decoded(bytes, format, nullptr);
    if (!format.mark)
        file.format.declared = declaredCharset(file.text, kind);
    return file;
}

bool decodesUnchanged(std::string_view bytes)
{
    constexpr char escape = '\x1B'; // starts the escape sequences of seven-bit sets
    if (!isAscii(bytes) || bytes.find(escape) != std::string_view::npos)
        return false;
    const auto ends = lineEndsOf(bytes);
    return ends == LineEnds::CrLf || ends == LineEnds::None;
}

std::string decodeFile(std::string_view bytes, const TextFormat &format)
{
    return toCrLf(OriginalText(bytes, format).view(), format.lineEnds);
}

} // namespace kevra
