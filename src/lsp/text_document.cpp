// SPDX-License-Identifier: GPL-3.0-or-later
#include "lsp/text_document.h"

#include "text/utf8.h"

#include <algorithm>

namespace kevra::lsp {

TextDocument::TextDocument(std::string text, PositionUnit unit)
    : m_unit(unit)
{
    replaceAll(std::move(text));
}

void TextDocument::replaceAll(std::string text)
{
    m_text = std::move(text);
    m_ascii = isAscii(m_text);
    m_known = {};
    m_starts = {0};
    appendStarts(m_starts, {1, static_cast<Offset>(m_text.size())});
}

bool TextDocument::startsLine(Offset offset) const
{
    const auto at = static_cast<std::size_t>(offset);
    const char before = m_text[at - 1];
    return before == '\n' || (before == '\r' && (at == m_text.size() || m_text[at] != '\n'));
}

/// The line starts in [start, end].
void TextDocument::appendStarts(std::vector<Offset> &starts, TextRange range) const
{
    for (auto at = range.start; at <= range.end; ++at) {
        if (startsLine(at))
            starts.push_back(at);
    }
}

void TextDocument::replace(TextRange range, std::string_view text)
{
    m_text.replace(static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.length()), text);
    m_ascii = m_ascii && isAscii(text);
    m_known = {};
    const auto added = static_cast<Offset>(text.size());
    // Line starts at the edges may change too, if a CR and an LF are joined or separated.
    const auto first = std::ranges::lower_bound(m_starts, std::max<Offset>(range.start, 1));
    const auto last = std::ranges::upper_bound(m_starts, range.end);
    for (auto start = last; start != m_starts.end(); ++start)
        *start += added - range.length();
    std::vector<Offset> between;
    appendStarts(between, {std::max<Offset>(range.start, 1), range.start + added});
    const auto at = m_starts.erase(first, std::max(first, last));
    m_starts.insert(at, between.begin(), between.end());
}

/// Before the line break.
Offset TextDocument::lineEnd(std::size_t line) const
{
    auto end = line + 1 < m_starts.size() ? m_starts[line + 1] : static_cast<Offset>(m_text.size());
    if (line + 1 == m_starts.size())
        return end;
    --end;
    const bool pair = end > m_starts[line] && m_text[static_cast<std::size_t>(end)] == '\n'
        && m_text[static_cast<std::size_t>(end) - 1] == '\r';
    return pair ? end - 1 : end;
}

Offset TextDocument::units(Offset from, Offset to) const
{
    if (m_ascii || m_unit == PositionUnit::Utf8)
        return to - from;
    Offset count = 0;
    for (auto at = from; at < to; ++at) {
        const auto byte = static_cast<unsigned char>(m_text[static_cast<std::size_t>(at)]);
        if (!continuesCharacter(static_cast<char>(byte)))
            count += m_unit == PositionUnit::Utf16 && byte >= 0xF0 ? 2 : 1;
    }
    return count;
}

Position TextDocument::positionAt(Offset offset) const
{
    offset = std::clamp<Offset>(offset, 0, static_cast<Offset>(m_text.size()));
    const auto line
        = static_cast<std::size_t>(std::ranges::upper_bound(m_starts, offset) - m_starts.begin()) - 1;
    const auto start = m_starts[line];
    const bool onward = m_known.line == line && m_known.offset >= start && m_known.offset <= offset;
    const auto character = onward ? m_known.character + units(m_known.offset, offset) : units(start, offset);
    m_known = {line, offset, character};
    return {static_cast<Offset>(line), character};
}

Offset TextDocument::offsetAt(Position position) const
{
    if (position.line >= static_cast<Offset>(m_starts.size()))
        return static_cast<Offset>(m_text.size());
    const auto line = static_cast<std::size_t>(std::max<Offset>(position.line, 0));
    const auto start = m_starts[line];
    const auto end = lineEnd(line);
    const auto wanted = std::max<Offset>(position.character, 0);
    if (m_ascii || m_unit == PositionUnit::Utf8) {
        auto at = wanted < end - start ? start + wanted : end;
        while (at > start && at < end && continuesCharacter(m_text[static_cast<std::size_t>(at)]))
            --at;
        return at;
    }
    const bool onward = m_known.line == line && m_known.offset >= start && m_known.character <= wanted
        && m_known.offset <= end;
    auto at = onward ? m_known.offset : start;
    auto character = onward ? m_known.character : 0;
    while (at < end) {
        auto next = at + 1;
        while (next < end && continuesCharacter(m_text[static_cast<std::size_t>(next)]))
            ++next;
        const auto width = units(at, next);
        if (character + width > wanted)
            break;
        character += width;
        at = next;
    }
    m_known = {line, at, character};
    return at;
}

} // namespace kevra::lsp
