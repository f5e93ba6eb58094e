// SPDX-License-Identifier: GPL-3.0-or-later
// Showing a place of the text together with the lines around it.
#pragma once

#include "text/types.h"

namespace kevra {

class EditorControl;

/// Where the caret is at the edge of the view, its line comes to the middle.
void revealCaret(EditorControl &document);
/// Selects this, reveals it and gives the document the keyboard.
void goTo(EditorControl &document, TextRange range);

} // namespace kevra
