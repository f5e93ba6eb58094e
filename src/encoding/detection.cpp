// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/detection.h"

#include "encoding/declared_charset.h"
#include "encoding/guess.h"
#include "encoding/transcoding.h"

namespace kevra {
namespace {

/// UTF-32 first: its little-endian mark starts with that of UTF-16.
constexpr auto markedEncodings
    = {Encoding::Utf32Le, Encoding::Utf32Be, Encoding::Utf8, Encoding::Utf16Le, Encoding::Utf16Be};

} // namespace

Detected detect(std::string_view bytes, TextKind kind)
{
    for (const auto encoding : markedEncodings) {
        const auto mark = markOf(encoding);
        if (bytes.starts_with(mark) && isValid(bytes.substr(mark.size()), encoding))
            return {encoding, true, {}, false};
    }
    const auto declared = declaredCharset(bytes, kind);
    if (declared && isValid(bytes, *declared))
        return {*declared, false, declared, false};
    if (!isAscii(bytes) && isUtf8(bytes))
        return {Encoding::Utf8, false, declared, false};
    if (const auto guess = reliableGuess(bytes))
        return {*guess, false, declared, true};
    return {Encoding::Windows1252, false, declared, false};
}

} // namespace kevra
