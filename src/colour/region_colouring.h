// SPDX-License-Identifier: GPL-3.0-or-later
// Colouring one region of a script, at a cost that goes by the region and its line.
#pragma once

#include "editor/document_state.h"
#include "editor/surface.h"

namespace kevra {

/// Paints a region as it stands, literals included, and leaves the caret at its end with a black typing
/// colour. False when the pass failed on the way; what it had painted stays.
bool colourRegion(EditorSurface &document, TextRange region, Colour code);

/// Blackens a region and paints its pieces outside literals; a quote before the region is not looked for.
/// Caret and selection stay; the typing colour is black.
void recolourRegion(EditorSurface &document, TextRange region, Colour code);

} // namespace kevra
