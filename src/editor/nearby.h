// SPDX-License-Identifier: GPL-3.0-or-later
// Searches around a position in growing steps, so that the cost depends on the distance and not on the
// document's length.
#pragma once

#include "editor/surface.h"

#include <limits>
#include <string_view>

namespace kevra {

inline constexpr Offset wholeText = std::numeric_limits<Offset>::max() / 2;
/// How far a keystroke searches around the caret, in bytes.
inline constexpr Offset keyReach = Offset{256} * 1024;

/// The first byte in [from, end) that is one of `bytes`, or -1.
[[nodiscard]] Offset firstOf(
    const EditorSurface &surface, std::string_view bytes, Offset from, Offset end = wholeText);
/// The last `byte` in [start, end), or -1.
[[nodiscard]] Offset lastOf(const EditorSurface &surface, char byte, Offset end, Offset start = 0);
/// The start of a position's line: after the LF before it.
[[nodiscard]] Offset lineStart(const EditorSurface &surface, Offset position);
/// The end of a position's line: the CR after it, or the end of the text.
[[nodiscard]] Offset lineEnd(const EditorSurface &surface, Offset position);
/// The whole lines that overlap `range`, without the last line break.
[[nodiscard]] TextRange linesOf(const EditorSurface &surface, TextRange range);
/// Whether these lines start or end further away than a keystroke searches.
[[nodiscard]] bool onLongLine(const EditorSurface &surface, TextRange range);

} // namespace kevra
