// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/surface.h"

#include <algorithm>

namespace kevra {

bool EditorSurface::SetSelLength(Offset length)
{
    if (length < 0)
        return false;
    const auto start = SelStart();
    Select({start, start + length});
    return true;
}

Colour EditorSurface::SelColor() const
{
    const auto selection = Selection();
    return selection.empty() ? TypingColor() : ColourAt(selection.start);
}

void EditorSurface::SetSelColor(Colour colour)
{
    const ColourRun run{Selection(), colour};
    if (run.range.empty())
        SetTypingColor(colour);
    else
        SetColours(run.range, {&run, 1});
}

std::string EditorSurface::TextCopy() const
{
    constexpr Offset chunk = Offset{256} * 1024;
    const auto length = TextLength();
    std::string copy;
    copy.reserve(static_cast<std::size_t>(length));
    for (Offset at = 0; at < length; at += chunk)
        copy += Text({at, std::min(at + chunk, length)});
    return copy;
}

void EditorSurface::FinishLines(TextRange range)
{
    for (auto at = NextUnfinished(range); at != -1; at = NextUnfinished(range))
        SetUnfinished(at, false);
}

void EditorSurface::Span(std::string_view characters)
{
    constexpr Offset chunk = 4096;
    const auto start = SelStart();
    const auto length = TextLength();
    for (auto at = start; at < length; at += chunk) {
        const auto found = Text({at, std::min(at + chunk, length)}).find_first_of(characters);
        if (found != std::string_view::npos)
            return Select({start, at + static_cast<Offset>(found)});
    }
    Select({start, length});
}

BusySurface::BusySurface(ControlAppearance &surface)
    : m_surface(surface)
{
    m_surface.SetDisplay(false);
    m_surface.SetMousePointer(MousePointer::Hourglass);
}

BusySurface::~BusySurface()
{
    m_surface.SetMousePointer(MousePointer::Default);
    m_surface.SetDisplay(true);
}

} // namespace kevra
