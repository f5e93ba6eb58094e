// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/memory_surface.h"

#include <algorithm>

namespace kevra {

MemorySurface::MemorySurface(std::string_view text)
{
    MemorySurface::LoadText(text);
}

TextRange MemorySurface::inside(TextRange range) const
{
    const auto start = std::clamp<Offset>(range.start, 0, TextLength());
    return {start, std::clamp(range.end, start, TextLength())};
}

std::string_view MemorySurface::Text(TextRange range) const
{
    const auto part = inside(range);
    return std::string_view(m_text).substr(
        static_cast<std::size_t>(part.start), static_cast<std::size_t>(part.length()));
}

void MemorySurface::LoadText(std::string_view text)
{
    m_text = text;
    m_colours.assign(text.size(), colours::black);
    m_unfinished.assign(static_cast<std::size_t>(GetLineFromChar(TextLength()) + 1), false);
    m_selection = {};
    m_typing = colours::black;
    m_firstVisibleLine = 0;
}

void MemorySurface::Replace(TextRange range, std::string_view text)
{
    const auto part = inside(range);
    const auto lines = m_unfinished.begin();
    const auto first = lines + GetLineFromChar(part.start);
    const auto last = lines + GetLineFromChar(part.end);
    *first = std::find(first, last + 1, true) != last + 1;
    const auto next = m_unfinished.erase(first + 1, last + 1) - m_unfinished.begin();
    const auto from = m_colours.begin() + part.start;
    m_colours.insert(m_colours.erase(from, from + part.length()), text.size(), m_typing);
    m_text.replace(static_cast<std::size_t>(part.start), static_cast<std::size_t>(part.length()), text);
    const auto end = part.start + static_cast<Offset>(text.size());
    const auto lineCount = static_cast<std::size_t>(GetLineFromChar(TextLength()) + 1);
    // Joining a CR and an LF makes one line end of two, so there may be fewer lines than flags.
    if (lineCount > m_unfinished.size())
        m_unfinished.insert(m_unfinished.begin() + next, lineCount - m_unfinished.size(), false);
    m_unfinished.resize(lineCount);
    m_selection = {end, end};
}

void MemorySurface::Select(TextRange range)
{
    m_selection = inside(range);
}

Colour MemorySurface::ColourAt(Offset position) const
{
    return position >= 0 && position < TextLength() ? m_colours[static_cast<std::size_t>(position)]
                                                    : colours::black;
}

void MemorySurface::SetColours(TextRange range, std::span<const ColourRun> runs, Ground ground)
{
    const auto whole = inside(range);
    if (ground == Ground::Black)
        std::fill(m_colours.begin() + whole.start, m_colours.begin() + whole.end, colours::black);
    for (const auto &run : runs) {
        const auto start = std::max(run.range.start, whole.start);
        const auto end = std::min(run.range.end, whole.end);
        if (start < end)
            std::fill(m_colours.begin() + start, m_colours.begin() + end, run.colour);
    }
}

void MemorySurface::SetPaint(Paint paint)
{
    std::ranges::transform(paint.indices, m_colours.begin(),
        [&](char index) { return paint.palette[static_cast<unsigned char>(index)]; });
}

void MemorySurface::SetUnfinished(Offset position, bool on)
{
    m_unfinished[static_cast<std::size_t>(GetLineFromChar(position))] = on;
}

Offset MemorySurface::NextUnfinished(TextRange range) const
{
    for (auto at = range.start; at <= range.end; ++at)
        if (m_unfinished[static_cast<std::size_t>(GetLineFromChar(at))])
            return at;
    return -1;
}

Offset MemorySurface::GetLineFromChar(Offset position) const
{
    // A lone CR ends a line; in a CRLF only the LF counts.
    const auto before = Text({0, position});
    Offset line = 0;
    for (std::size_t i = 0; i < before.size(); ++i)
        line += before[i] == '\n' || (before[i] == '\r' && m_text.compare(i + 1, 1, "\n") != 0);
    return line;
}

void MemorySurface::SetFirstVisibleLine(Offset line)
{
    m_firstVisibleLine = std::clamp<Offset>(line, 0, GetLineFromChar(TextLength()));
}

} // namespace kevra
