// SPDX-License-Identifier: GPL-3.0-or-later
// Comments that switch findings off: 'kevra: off KV2003, KV2004 on a line for that line, on a line of its own
// for the statement that follows with everything in it. Without codes all findings are meant.
#pragma once

#include "script/parser.h"

#include <vector>

namespace kevra::script {

/// `findings` are in ascending order of their start.
void dropSilenced(const ParsedScript &script, std::vector<Finding> &findings);

} // namespace kevra::script
