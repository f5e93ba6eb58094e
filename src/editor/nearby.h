// SPDX-License-Identifier: GPL-3.0-or-later
// Looking around a place of a surface in growing steps, so that what is near is found at once however long
// the document is.
#pragma once

#include "editor/surface.h"

#include <string_view>

namespace kevra {

/// The first byte at or behind `from` that is one of `bytes`, or -1.
[[nodiscard]] Offset firstOf(const EditorSurface &document, std::string_view bytes, Offset from);
/// The last byte before `end`, and not before `start`, that is `byte`, or -1.
[[nodiscard]] Offset lastOf(const EditorSurface &document, char byte, Offset end, Offset start = 0);
/// Where the line of a position starts.
[[nodiscard]] Offset lineStart(const EditorSurface &document, Offset position);
/// The whole lines that `range` reaches into, without the last one's break.
[[nodiscard]] TextRange linesOf(const EditorSurface &document, TextRange range);

} // namespace kevra
