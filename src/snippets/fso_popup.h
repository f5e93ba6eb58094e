// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editor/surface.h"

namespace kevra {

/// Whether the caret stands right behind "fso." in code, so that the method names are worth offering. A
/// literal or comment is looked for on the caret's line alone.
[[nodiscard]] bool offersFsoMethods(const EditorSurface &document);

} // namespace kevra
