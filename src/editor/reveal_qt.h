// SPDX-License-Identifier: GPL-3.0-or-later
// Scrolls a position into view with some lines around it.
#pragma once

#include "text/types.h"

namespace kevra {

class EditorControl;

/// Centres the caret's line if it is at the edge of the view.
void revealCaret(EditorControl &control);
/// Selects the range, reveals it and gives the control the focus.
void goTo(EditorControl &control, TextRange range);

} // namespace kevra
