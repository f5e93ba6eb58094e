// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editor/surface.h"

namespace kevra {

/// Whether the caret is just after "fso." in code, where the method names are offered. Literals and comments
/// are recognised on the line of the caret only.
[[nodiscard]] bool offersFsoMethods(const EditorSurface &surface);

} // namespace kevra
