// SPDX-License-Identifier: GPL-3.0-or-later
// Recolours after an edit other than plain typing: the touched text, and what depends on it, looks as if the
// whole document had just been coloured. Caret and selection stay.
#pragma once

#include "editor/document_state.h"
#include "editor/surface.h"

namespace kevra {

/// Recolours the tags around `touched`; an overlong tag is left as it is.
void recolourTags(EditorSurface &surface, TextRange touched, Colour code);

/// Recolours the lines of a script that `touched` overlaps, as if they were a script of their own. Black text
/// in an unfinished line stays black. After a small edit, an overlong line is only marked as unfinished.
void recolourScript(EditorSurface &surface, TextRange touched, Colour code);

/// Colours new text: black if the document takes no colour, else as the tool set shown colours it.
void recolourInserted(EditedDocument document, TextRange touched);

} // namespace kevra
