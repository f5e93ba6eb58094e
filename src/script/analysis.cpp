// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/analysis.h"

#include "script/rule_tables.h"
#include "script/silencing.h"

#include <algorithm>
#include <array>

namespace kevra::script {
namespace {

/// What must hold before a rule can be applied.
enum class Needs {
    Nothing,
    WholeText, ///< no syntax errors: text that was not understood could be what the rule misses
};

struct NodeRule {
    NodeKind kind;
    void (*check)(const Model &, NodeId, FindingList &);
    Needs needs = Needs::Nothing;
};

constexpr std::array nodeRules{
    NodeRule{NodeKind::Apply, checkArgumentCount},
    NodeRule{NodeKind::CallStatement, checkArgumentCount},
    NodeRule{NodeKind::Assign, checkMissingSet},
    NodeRule{NodeKind::SetAssign, checkSetWithValue},
    NodeRule{NodeKind::Member, checkUnknownMember},
    NodeRule{NodeKind::Binary, checkNullComparison},
    NodeRule{NodeKind::Binary, checkNoShortCircuit},
    NodeRule{NodeKind::If, checkRepeatedCondition},
    NodeRule{NodeKind::Select, checkRepeatedCase},
    NodeRule{NodeKind::Script, checkUnreachable, Needs::WholeText},
    NodeRule{NodeKind::Block, checkUnreachable, Needs::WholeText},
};

struct SymbolRule {
    void (*check)(const Model &, SymbolId, FindingList &);
    Needs needs = Needs::WholeText;
};

constexpr std::array symbolRules{
    SymbolRule{checkRedefined, Needs::Nothing},
    SymbolRule{checkConstantAssigned, Needs::Nothing},
    SymbolRule{checkLoopVariableChanged},
    SymbolRule{checkFunctionWithoutResult},
    SymbolRule{checkUnused},
    SymbolRule{checkNeverRead},
    SymbolRule{checkShadowed},
};

struct ScriptRule {
    void (*check)(const Model &, FindingList &);
    Needs needs = Needs::WholeText;
};

constexpr std::array scriptRules{
    ScriptRule{checkUndeclared},
    ScriptRule{checkMisspelled},
    ScriptRule{checkResumeNextNeverEnds},
    ScriptRule{checkNoOptionExplicit, Needs::Nothing},
    ScriptRule{checkNeedsVbscript, Needs::Nothing},
};

constexpr std::size_t kindCount = static_cast<std::size_t>(NodeKind::Stop) + 1;

/// The index of the first rule of each node kind; the table is grouped by kind.
constexpr auto firstRuleOf = [] {
    std::array<std::uint8_t, kindCount> first{};
    first.fill(nodeRules.size());
    for (std::size_t i = nodeRules.size(); i-- > 0;)
        first[static_cast<std::size_t>(nodeRules[i].kind)] = static_cast<std::uint8_t>(i);
    return first;
}();

void checkNodes(const Model &model, bool wholeText, FindingList &findings)
{
    for (NodeId id = 1; id < model.tree.size(); ++id) {
        const auto kind = model.kind(id);
        for (std::size_t i = firstRuleOf[static_cast<std::size_t>(kind)];
             i < nodeRules.size() && nodeRules[i].kind == kind; ++i) {
            if (wholeText || nodeRules[i].needs == Needs::Nothing)
                nodeRules[i].check(model, id, findings);
        }
    }
}

} // namespace

std::vector<Finding> analyse(const ParsedScript &script, const Surroundings &surroundings)
{
    return analyse(Model(script, surroundings));
}

std::vector<Finding> analyse(const Model &model)
{
    const auto &script = model.script;
    const bool wholeText = script.complete && script.findings.empty();
    FindingList found;
    checkNodes(model, wholeText, found);
    for (const auto &rule : symbolRules) {
        for (SymbolId id = 1; id < model.symbols.symbolCount(); ++id) {
            if (wholeText || rule.needs == Needs::Nothing)
                rule.check(model, id, found);
        }
    }
    for (const auto &rule : scriptRules) {
        if (wholeText || rule.needs == Needs::Nothing)
            rule.check(model, found);
    }
    auto findings = script.findings;
    auto more = found.take();
    findings.insert(
        findings.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
    std::ranges::stable_sort(findings, {}, [](const Finding &finding) { return finding.range.start; });
    dropSilenced(script, findings);
    return findings;
}

} // namespace kevra::script
