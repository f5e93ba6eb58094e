// SPDX-License-Identifier: GPL-3.0-or-later
// Looking around a place of a surface in growing steps, so that what is near is found at once however long
// the document is.
#pragma once

#include "editor/surface.h"

#include <limits>
#include <string_view>

namespace kevra {

inline constexpr Offset wholeText = std::numeric_limits<Offset>::max() / 2;
/// How far a key looks for what belongs to the place where it was pressed.
inline constexpr Offset keyReach = Offset{256} * 1024;

/// The first byte at or behind `from`, and before `end`, that is one of `bytes`, or -1.
[[nodiscard]] Offset firstOf(
    const EditorSurface &document, std::string_view bytes, Offset from, Offset end = wholeText);
/// The last byte before `end`, and not before `start`, that is `byte`, or -1.
[[nodiscard]] Offset lastOf(const EditorSurface &document, char byte, Offset end, Offset start = 0);
/// Where the line of a position starts.
[[nodiscard]] Offset lineStart(const EditorSurface &document, Offset position);
/// The whole lines that `range` reaches into, without the last one's break.
[[nodiscard]] TextRange linesOf(const EditorSurface &document, TextRange range);
/// Whether these lines start or end beyond the reach of a key.
[[nodiscard]] bool onLongLine(const EditorSurface &document, TextRange range);

} // namespace kevra
