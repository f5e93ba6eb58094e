// SPDX-License-Identifier: GPL-3.0-or-later
// The findings of a parsed script: those of lexer and parser, and those of every rule about names, objects,
// conditions and the flow of control.
#pragma once

#include "script/parser.h"
#include "script/surroundings.h"

#include <vector>

namespace kevra::script {

class Model;

/// Ascending by start, without those that a comment switches off.
[[nodiscard]] std::vector<Finding> analyse(const ParsedScript &script, const Surroundings &surroundings = {});
/// The same for a script whose names are already resolved.
[[nodiscard]] std::vector<Finding> analyse(const Model &model);

} // namespace kevra::script
