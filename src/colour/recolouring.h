// SPDX-License-Identifier: GPL-3.0-or-later
// Colours after an edit that was not plain typing: what was touched, and what hangs on it, looks as if the
// whole document had just been coloured. Caret and selection stay.
#pragma once

#include "editor/document_state.h"
#include "editor/surface.h"

namespace kevra {

/// The tags around `touched`; one that is overlong is left as it is.
void mendTags(EditorSurface &document, TextRange touched, Colour code);

/// The lines of a script that `touched` reaches into, as if they were a script of their own. What is black in
/// a line that is being written stays black. A small edit leaves an overlong line to be finished later.
void recolourScript(EditorSurface &document, TextRange touched, Colour code);

/// `touched` is new text: black where no colour is wanted, else as the tools that are shown colour it.
void recolourInserted(EditorSurface &document, TextRange touched, const DocumentState &state);

} // namespace kevra
