// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/text_codec.h"

#include "encoding/charset.h"
#include "encoding/declared_charset.h"
#include "encoding/line_ends.h"

#include <utility>

namespace kevra {
namespace {

struct Detected {
    Encoding encoding = Encoding::Windows1252;
    bool mark = false;
    std::optional<Encoding> declared;
};

Detected detect(std::string_view bytes, TextKind kind)
{
    for (const auto encoding : {Encoding::Utf8, Encoding::Utf16Le, Encoding::Utf16Be}) {
        const auto mark = markOf(encoding);
        if (bytes.starts_with(mark) && isValid(bytes.substr(mark.size()), encoding))
            return {encoding, true, std::nullopt};
    }
    const auto declared = kind == TextKind::Page ? declaredCharset(bytes) : std::nullopt;
    if (declared && isValid(bytes, *declared))
        return {*declared, false, declared};
    if (!isAscii(bytes) && isUtf8(bytes))
        return {Encoding::Utf8, false, declared};
    return {Encoding::Windows1252, false, declared};
}

std::string_view withoutMark(std::string_view bytes, const TextFormat &format)
{
    return format.mark ? bytes.substr(markOf(format.encoding).size()) : bytes;
}

std::optional<std::string> bytesIn(std::string_view text, Encoding encoding, bool mark)
{
    auto bytes = fromUtf8(text, encoding);
    if (bytes && mark)
        bytes->insert(0, markOf(encoding));
    return bytes;
}

/// Whether the file will be read as the text it was written from.
bool readsBack(std::string_view bytes, Encoding encoding, bool mark, TextKind kind)
{
    const auto detected = detect(bytes, kind);
    return (detected.encoding == encoding && detected.mark == mark) || (!detected.mark && isAscii(bytes));
}

EncodedFile encodeLines(std::string_view text, const TextFormat &format, bool open, TextKind kind)
{
    if (auto bytes = bytesIn(text, format.encoding, format.mark);
        bytes && (!open || readsBack(*bytes, format.encoding, format.mark, kind)))
        return {std::move(*bytes), format};

    auto next = format;
    next.encoding = kind == TextKind::Script ? Encoding::Utf16Le : Encoding::Utf8;
    next.mark = kind == TextKind::Script;
    auto bytes = bytesIn(text, next.encoding, next.mark);
    if (!bytes) {
        // Not even UTF-8: the bytes go out as they are in memory.
        next.encoding = Encoding::Utf8;
        next.mark = false;
        return {std::string(text), next};
    }
    // A page that names another set needs the mark, which goes before what a page says, here and in browsers.
    const bool contradicted = next.declared && next.declared != Encoding::Utf8;
    if (!next.mark && (contradicted || !readsBack(*bytes, next.encoding, next.mark, kind))) {
        next.mark = true;
        bytes->insert(0, markOf(next.encoding));
    }
    return {std::move(*bytes), next};
}

/// The text of a file with its own line ends; nothing is copied where the bytes are UTF-8 as they stand.
class OriginalText {
public:
    OriginalText(std::string_view bytes, const TextFormat &format)
        : m_view(withoutMark(bytes, format))
    {
        const bool wide = format.encoding == Encoding::Utf16Le || format.encoding == Encoding::Utf16Be;
        if (format.encoding == Encoding::Utf8 || (!wide && isAscii(m_view)))
            return;
        m_converted = toUtf8(m_view, format.encoding);
        m_view = m_converted;
    }
    OriginalText(const OriginalText &) = delete;
    OriginalText &operator=(const OriginalText &) = delete;

    [[nodiscard]] std::string_view view() const { return m_view; }
    [[nodiscard]] bool isAllOf(std::string_view bytes) const { return m_view.data() == bytes.data(); }

private:
    std::string m_converted;
    std::string_view m_view;
};

std::string withFileLineEnds(std::string_view text, const TextFormat &format, std::string_view original)
{
    if (format.lineEnds != LineEnds::Mixed)
        return fromCrLf(text, format.lineEnds);
    return withLineEndsOf(text, OriginalText(original, format).view());
}

/// The text is taken from `owned`, where it holds the bytes and they are the text.
DecodedFile decoded(std::string_view bytes, TextKind kind, std::string *owned)
{
    const auto [encoding, mark, declared] = detect(bytes, kind);
    DecodedFile file{{}, {encoding, mark, LineEnds::None, declared}};
    const OriginalText original(bytes, file.format);
    file.format.lineEnds = lineEndsOf(original.view());
    if (owned && file.format.lineEnds == LineEnds::CrLf && original.isAllOf(bytes) && isAscii(bytes))
        file.text = std::exchange(*owned, {});
    else
        file.text = toCrLf(original.view(), file.format.lineEnds);
    return file;
}

} // namespace

DecodedFile decodeFile(std::string_view bytes, TextKind kind)
{
    return decoded(bytes, kind, nullptr);
}

DecodedFile decodeFrom(std::string &bytes, TextKind kind)
{
    return decoded(bytes, kind, &bytes);
}

bool isTextAsItStands(std::string_view bytes)
{
    if (!isAscii(bytes))
        return false;
    const auto ends = lineEndsOf(bytes);
    return ends == LineEnds::CrLf || ends == LineEnds::None;
}

std::string decodeFile(std::string_view bytes, const TextFormat &format)
{
    return toCrLf(OriginalText(bytes, format).view(), format.lineEnds);
}

EncodedFile encodeFile(
    std::string_view text, const TextFormat &format, std::string_view original, TextKind kind)
{
    if (!original.empty() && decodeFile(original, format) == text)
        return {std::string(original), format};

    auto wanted = format;
    if (!wanted.mark) {
        wanted.declared = kind == TextKind::Page ? declaredCharset(text) : std::nullopt;
        if (wanted.declared && wanted.declared != format.declared)
            wanted.encoding = *wanted.declared;
    }
    // As long as no byte of the file fixes its encoding, it must be one that reads back as the same text.
    const bool open = wanted.declared != format.declared || isAscii(original);
    const auto lines = withFileLineEnds(text, format, original);
    auto encoded = encodeLines(lines, wanted, open, kind);
    if (format.lineEnds == LineEnds::Mixed || format.lineEnds == LineEnds::None)
        encoded.format.lineEnds = lineEndsOf(lines);
    return encoded;
}

} // namespace kevra
