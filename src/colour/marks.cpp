// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/marks.h"

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
    m_found = search(static_cast<std::size_t>(from));
    return m_found;
}

// Searches for the first byte: searching for all of such a short mark takes several times as long.
Offset MarkSearch::search(std::size_t from) const
{
    for (auto at = m_text.find(m_mark.front(), from); at != std::string_view::npos;
         at = m_text.find(m_mark.front(), at + 1)) {
        if (m_text.substr(at).starts_with(m_mark))
            return static_cast<Offset>(at);
    }
    return -1;
}

ScriptMarks::ScriptMarks(std::string_view text)
    : opening(text, placeholderOpening)
    , closing(text, placeholderClosing)
    , comment(text, separatorComment)
    , lineEnd(text, "\r")
{
}

} // namespace kevra
