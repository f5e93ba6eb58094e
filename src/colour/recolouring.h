// SPDX-License-Identifier: GPL-3.0-or-later
// Colours after an edit that was not plain typing: what was touched, and what hangs on it, looks as if the
// whole document had just been coloured. Caret and selection stay.
#pragma once

#include "editor/document_state.h"
#include "editor/surface.h"

namespace kevra {

/// The tags around `touched`.
void mendTags(EditorSurface &document, TextRange touched, Colour code);

/// The whole script: a quote more or less turns literals into code as far as the document goes.
void mendScript(EditorSurface &document, Colour code);
/// The lines of `touched` alone, as if no literal reached into them.
void mendScriptLines(EditorSurface &document, TextRange touched, Colour code);

/// Documents up to this size, in bytes, are coloured as a whole even at a single key.
inline constexpr Offset smallScript = Offset{256} * 1024;

/// `touched` is new text: black where no colour is wanted, else as the tools that are shown colour it.
void recolourInserted(EditorSurface &document, TextRange touched, const DocumentState &state);

} // namespace kevra
