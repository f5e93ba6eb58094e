// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/declared_charset.h"
#include "encoding/detection.h"
#include "encoding/edited_lines.h"
#include "encoding/line_ends.h"
#include "encoding/original_text.h"
#include "encoding/text_codec.h"
#include "encoding/transcoding.h"

#include <utility>

namespace kevra {
namespace {

RawBytes rawBytesOf(const TextFormat &format)
{
    return format.rawBytes ? RawBytes::Escaped : RawBytes::None;
}

std::optional<std::string> bytesIn(std::string_view text, const TextFormat &format)
{
    auto bytes = fromUtf8(text, format.encoding, rawBytesOf(format));
    if (bytes && format.mark)
        bytes->insert(0, markOf(format.encoding));
    return bytes;
}

/// Whether the file will be read in the encoding it is written in.
bool readsBack(std::string_view bytes, const TextFormat &format, TextKind kind)
{
    const auto detected = detect(bytes, kind);
    return (detected.encoding == format.encoding && detected.mark == format.mark)
        || (!detected.mark && isAscii(bytes) && characterSet(detected.encoding).form != Form::Shifting);
}

/// Encodes a text that its own format cannot represent.
EncodedFile encodeWider(std::string_view text, const TextFormat &format, TextKind kind)
{
    auto next = widerFormat(format, kind);
    auto bytes = bytesIn(text, next);
    if (!bytes) {
        // Not valid UTF-8 either: the bytes are written as they are in memory.
        next.encoding = Encoding::Utf8;
        next.mark = false;
        return {std::string(text), next};
    }
    if (!next.mark && !readsBack(*bytes, next, kind)) {
        next.mark = true;
        bytes->insert(0, markOf(next.encoding));
    }
    return {std::move(*bytes), next};
}

/// The format to write the text in. A declaration that was changed since reading is followed.
TextFormat targetFormat(
    std::string_view text, const TextFormat &format, TextKind kind, const std::optional<TextFormat> &wanted)
{
    auto target = wanted.value_or(format);
    if (target.mark || unitSize(target.encoding) > 1)
        return target;
    const auto before = target.declared;
    target.declared = declaredCharset(text, kind);
    if (target.declared && target.declared != before) {
        target.encoding = *target.declared;
        target.guessed = false;
        target.named = false;
        target.rawBytes = target.rawBytes && target.encoding == format.encoding;
    }
    return target;
}

/// Whether the text alone determines the bytes: each character has one encoded form, and all lines end alike.
bool textDeterminesBytes(const TextFormat &format, const TextFormat &target)
{
    const auto form = characterSet(target.encoding).form;
    const bool oneForm = form == Form::SingleByte || form == Form::Utf8 || form == Form::Wide;
    return oneForm && !format.rawBytes && target.lineEnds != LineEnds::Mixed;
}

std::optional<std::string> editedBytes(
    const EditedLines &lines, std::string_view original, const TextFormat &format, const TextFormat &target)
{
    if (target.encoding != format.encoding)
        return std::nullopt;
    auto bytes = lines.bytes(withoutMark(original, format), target.encoding, rawBytesOf(target));
    if (bytes && target.mark)
        bytes->insert(0, markOf(target.encoding));
    return bytes;
}

} // namespace

TextFormat formatToWrite(std::string_view head, const FileForm &form)
{
    return targetFormat(head, form.format, form.kind, form.wanted);
}

TextFormat widerFormat(const TextFormat &format, TextKind kind)
{
    auto next = format;
    next.encoding = kind == TextKind::Script ? Encoding::Utf16Le : Encoding::Utf8;
    // A page that declares another set needs the mark, which overrides the declaration, here and in browsers.
    next.mark = kind == TextKind::Script || (next.declared && next.declared != Encoding::Utf8);
    next.guessed = false;
    next.named = false;
    next.rawBytes = false;
    return next;
}

EncodedFile encodeFile(std::string_view text, const TextFormat &format, std::string_view original,
    TextKind kind, const std::optional<TextFormat> &wanted)
{
    if (!wanted && !original.empty() && decodeFile(original, format) == text)
        return {std::string(original), format};

    auto target = targetFormat(text, format, kind, wanted);
    std::string lines;
    std::optional<std::string> bytes;
    if (original.empty() || textDeterminesBytes(format, target)) {
        lines = fromCrLf(text, target.lineEnds);
    } else {
        const OriginalText before(original, format);
        const EditedLines edited(text, before.view(), target.lineEnds);
        lines = edited.text();
        bytes = editedBytes(edited, original, format, target);
    }
    if (!bytes)
        bytes = bytesIn(lines, target);
    // Next to an invalid byte, typed text may have become part of another character.
    if (bytes && target.rawBytes && OriginalText(*bytes, target).view() != lines)
        bytes.reset();
    if (target.lineEnds == LineEnds::Mixed || target.lineEnds == LineEnds::None)
        target.lineEnds = lineEndsOf(lines);
    // Unless the user or the file has fixed the encoding, detection must give the same one again.
    const bool mustReadBack = !target.named && (target.declared != format.declared || isAscii(original));
    if (bytes && (!mustReadBack || readsBack(*bytes, target, kind)))
        return {std::move(*bytes), target};
    return encodeWider(lines, target, kind);
}

} // namespace kevra
