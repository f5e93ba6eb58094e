// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/nearby.h"

#include <algorithm>

namespace kevra {
namespace {

constexpr Offset firstStep = 1024;
constexpr Offset longestStep = 1 << 20;

} // namespace

Offset firstOf(const EditorSurface &surface, std::string_view bytes, Offset from, Offset end)
{
    const auto length = std::min(end, surface.Length());
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
    return lastOf(surface, '\n', position) + 1;
}

TextRange linesOf(const EditorSurface &surface, TextRange range)
{
    const auto end = firstOf(surface, "\r", range.end);
    return {lineStart(surface, range.start), end == -1 ? surface.Length() : end};
}

bool onLongLine(const EditorSurface &surface, TextRange range)
{
    const auto start = range.start - keyReach;
    const auto end = range.end + keyReach;
    return (start > 0 && lastOf(surface, '\n', range.start, start) == -1)
        || (end < surface.Length() && firstOf(surface, "\r", range.end, end) == -1);
}

} // namespace kevra
