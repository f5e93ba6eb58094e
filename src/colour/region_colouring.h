// SPDX-License-Identifier: GPL-3.0-or-later
// Colours one region of a script. The cost is proportional to the region and its line.
#pragma once

#include "editor/document_state.h"
#include "editor/surface.h"

namespace kevra {

/// Paints a region, string literals included, and leaves the caret at its end with a black typing colour.
/// False if the pass ended early; what it painted before stays.
bool colourRegion(EditorSurface &surface, TextRange region, Colour code);

/// Makes a region black and paints its pieces outside literals; quotes before the region are ignored.
/// Caret and selection stay; the typing colour is black.
void recolourRegion(EditorSurface &surface, TextRange region, Colour code);

} // namespace kevra
