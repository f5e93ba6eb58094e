// SPDX-License-Identifier: GPL-3.0-or-later
// The rules: functions that check one node, one symbol, or the whole script. Declared here by source file;
// their rows are in analysis.cpp.
#pragma once

#include "script/model.h"

namespace kevra::script {

// call_rules.cpp
void checkArgumentCount(const Model &model, NodeId call, FindingList &findings);

// object_rules.cpp
void checkMissingSet(const Model &model, NodeId assignment, FindingList &findings);
void checkSetWithValue(const Model &model, NodeId assignment, FindingList &findings);
void checkUnknownMember(const Model &model, NodeId member, FindingList &findings);

// condition_rules.cpp
void checkNullComparison(const Model &model, NodeId binary, FindingList &findings);
void checkNoShortCircuit(const Model &model, NodeId binary, FindingList &findings);
void checkRepeatedCondition(const Model &model, NodeId ifStatement, FindingList &findings);
void checkRepeatedCase(const Model &model, NodeId select, FindingList &findings);

// flow_rules.cpp
void checkUnreachable(const Model &model, NodeId block, FindingList &findings);
void checkLoopVariableChanged(const Model &model, SymbolId symbol, FindingList &findings);
void checkFunctionWithoutResult(const Model &model, SymbolId symbol, FindingList &findings);
void checkResumeNextNeverEnds(const Model &model, FindingList &findings);

// name_rules.cpp
void checkUndeclared(const Model &model, FindingList &findings);
void checkMisspelled(const Model &model, FindingList &findings);
void checkRedefined(const Model &model, SymbolId symbol, FindingList &findings);
void checkConstantAssigned(const Model &model, SymbolId symbol, FindingList &findings);
void checkUnused(const Model &model, SymbolId symbol, FindingList &findings);
void checkNeverRead(const Model &model, SymbolId symbol, FindingList &findings);
void checkShadowed(const Model &model, SymbolId symbol, FindingList &findings);

// option_explicit_rule.cpp
void checkNoOptionExplicit(const Model &model, FindingList &findings);

// inventory_rule.cpp
void checkNeedsVbscript(const Model &model, FindingList &findings);

} // namespace kevra::script
