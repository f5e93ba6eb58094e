// SPDX-License-Identifier: GPL-3.0-or-later
// What a parsed script means, and what of that is probably not meant: the findings of lexer and parser
// together with those of every rule about names, objects, conditions and the flow of control.
#pragma once

#include "script/parser.h"
#include "script/surroundings.h"

#include <vector>

namespace kevra::script {

class Model;

/// Ascending by place, without those that a comment switches off.
[[nodiscard]] std::vector<Finding> analyse(const ParsedScript &script, const Surroundings &surroundings = {});
/// The same of a script whose names are already known.
[[nodiscard]] std::vector<Finding> analyse(const Model &model);

} // namespace kevra::script
