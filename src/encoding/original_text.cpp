// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/original_text.h"

#include "encoding/transcoding.h"

namespace kevra {

std::string_view withoutMark(std::string_view bytes, const TextFormat &format)
{
    return format.mark ? bytes.substr(markOf(format.encoding).size()) : bytes;
}

OriginalText::OriginalText(std::string_view bytes, const TextFormat &format)
    : m_view(withoutMark(bytes, format))
{
    const auto form = characterSet(format.encoding).form;
    const bool asciiIsAscii = form == Form::SingleByte || form == Form::MultiByte;
    if ((asciiIsAscii && isAscii(m_view)) || (form == Form::Utf8 && isUtf8(m_view)))
        return;
    auto converted = toUtf8(m_view, format.encoding);
    m_converted = std::move(converted.text);
    m_rawBytes = converted.rawBytes;
    m_view = m_converted;
}

} // namespace kevra
