// SPDX-License-Identifier: GPL-3.0-or-later
// Texts with the selection marked in them: "a[b]c", or "ab|c" for the caret.
#pragma once

#include "editor/surface.h"

#include <string>

namespace kevra {

inline void loadMarked(EditorSurface &surface, std::string text)
{
    const auto open = text.find_first_of("[|");
    text.erase(open, 1);
    const auto close = text.find(']');
    if (close != std::string::npos)
        text.erase(close, 1);
    surface.LoadText(text);
    surface.Select(
        {static_cast<Offset>(open), static_cast<Offset>(close == std::string::npos ? open : close)});
}

inline std::string markedText(const EditorSurface &surface)
{
    std::string text(surface.Text());
    const auto [start, end] = surface.Selection();
    if (start == end)
        return text.insert(static_cast<std::size_t>(start), "|");
    return text.insert(static_cast<std::size_t>(end), "]").insert(static_cast<std::size_t>(start), "[");
}

} // namespace kevra
