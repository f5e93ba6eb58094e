// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/marks.h"

#include <cstring>

namespace kevra {

MarkSearch::MarkSearch(std::string_view text, std::string_view mark)
    : m_text(text)
    , m_mark(mark)
{
}

Offset MarkSearch::next(Offset from)
{
    const bool known = m_found != -2 && from >= m_searchedFrom && (m_found == -1 || m_found >= from);
    if (known)
        return m_found;
    m_searchedFrom = from;
    m_found = -1;
    const auto start = static_cast<std::size_t>(from);
    if (start >= m_text.size())
        return m_found;
    const auto rest = m_text.substr(start);
    const void *hit = m_mark.size() == 1 ? std::memchr(rest.data(), m_mark.front(), rest.size())
                                         : memmem(rest.data(), rest.size(), m_mark.data(), m_mark.size());
    if (hit)
        m_found = static_cast<const char *>(hit) - m_text.data();
    return m_found;
}

ScriptMarks::ScriptMarks(std::string_view text)
    : opening(text, placeholderOpening)
    , closing(text, placeholderClosing)
    , comment(text, separatorComment)
    , lineEnd(text, "\r")
{
}

} // namespace kevra
