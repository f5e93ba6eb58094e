// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/nearby.h"

#include <algorithm>

namespace kevra {
namespace {

constexpr Offset firstStep = 1024;
constexpr Offset longestStep = 1 << 20;

/// The first position that is on this line or a later one: an overlong line is found without being read.
Offset startOf(const EditorSurface &surface, Offset line)
{
    Offset first = 0;
    for (auto last = surface.TextLength(); first < last;) {
        const auto middle = first + (last - first) / 2;
        if (surface.GetLineFromChar(middle) < line)
            first = middle + 1;
        else
            last = middle;
    }
    return first;
}

} // namespace

Offset firstOf(const EditorSurface &surface, std::string_view bytes, Offset from, Offset end)
{
    const auto length = std::min(end, surface.TextLength());
    for (auto step = firstStep; from < length; step = std::min(2 * step, longestStep)) {
        auto part = surface.Text({from, std::min(from + step, length)});
        const auto partLength = static_cast<Offset>(part.size());
        for (const char byte : bytes)
            part = part.substr(0, part.find(byte));
        if (static_cast<Offset>(part.size()) < partLength)
            return from + static_cast<Offset>(part.size());
        from += partLength;
    }
    return -1;
}

Offset lastOf(const EditorSurface &surface, char byte, Offset end, Offset start)
{
    for (auto step = firstStep; end > start; step = std::min(2 * step, longestStep)) {
        const auto from = std::max(start, end - step);
        const auto at = surface.Text({from, end}).rfind(byte);
        if (at != std::string_view::npos)
            return from + static_cast<Offset>(at);
        end = from;
    }
    return -1;
}

Offset lineStart(const EditorSurface &surface, Offset position)
{
    for (;;) {
        const auto near = std::max<Offset>(0, position - keyReach);
        const auto lineFeed = lastOf(surface, '\n', position, near);
        if (lineFeed != -1 || near == 0)
            return lineFeed + 1;
        // A lone CR ends a line of the surface, but not one of these.
        position = startOf(surface, surface.GetLineFromChar(near));
        if (position == 0 || surface.Text({position - 1, position}) == "\n")
            return position;
    }
}

Offset lineEnd(const EditorSurface &surface, Offset position)
{
    for (;;) {
        const auto reached = position + keyReach;
        const auto end = firstOf(surface, "\r", position, reached);
        if (end != -1)
            return end;
        if (reached >= surface.TextLength())
            return surface.TextLength();
        // The line break, or what is before a lone LF, which ends no line here.
        const auto next = startOf(surface, surface.GetLineFromChar(reached) + 1);
        position = std::max(reached, next - 2);
    }
}

TextRange linesOf(const EditorSurface &surface, TextRange range)
{
    return {lineStart(surface, range.start), lineEnd(surface, range.end)};
}

bool onLongLine(const EditorSurface &surface, TextRange range)
{
    const auto start = range.start - keyReach;
    const auto end = range.end + keyReach;
    return (start > 0 && lastOf(surface, '\n', range.start, start) == -1)
        || (end < surface.TextLength() && firstOf(surface, "\r", range.end, end) == -1);
}

} // namespace kevra
