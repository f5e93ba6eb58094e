// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/builtins.h"
#include "script/rule_tables.h"

namespace kevra::script {
namespace {

[[nodiscard]] std::string countOf(unsigned count, std::string_view what)
{
    return (count == 0 ? "no" : std::to_string(count)) + " " + std::string(what) + (count == 1 ? "" : "s");
}

[[nodiscard]] std::string expectation(unsigned least, unsigned most)
{
    if (least == most)
        return countOf(least, "argument");
    return "from " + std::to_string(least) + " to " + countOf(most, "argument");
}

void checkCount(const Model &model, NodeId call, unsigned least, unsigned most, FindingList &findings)
{
    unsigned given = 0;
    for (const auto child : model.tree.children(call))
        given += child != model.tree[call].firstChild;
    if (given >= least && given <= most)
        return;
    const auto callee = model.tree[call].firstChild;
    findings.add(Rule::ArgumentCount, model.script.nameRange(callee),
        Model::quoted(model.spelling(callee)) + " takes " + expectation(least, most) + " and is given "
            + (given == 0 ? "none" : std::to_string(given)) + ".");
}

/// Of a procedure of the script; nothing where the count cannot be known.
void checkOwn(const Model &model, NodeId call, SymbolId procedure, FindingList &findings)
{
    const auto &symbol = model.symbols.symbol(procedure);
    const bool known
        = (symbol.kind == SymbolKind::Sub || symbol.kind == SymbolKind::Function) && !symbol.redeclared;
    if (!known)
        return;
    unsigned parameters = 0;
    for (const auto child : model.tree.children(symbol.node)) {
        if (model.kind(child) == NodeKind::Wrong)
            return;
        parameters += model.kind(child) == NodeKind::Parameter;
    }
    checkCount(model, call, parameters, parameters, findings);
}

/// The function's own name in its body may be its result, an array for instance.
[[nodiscard]] bool isOwnResult(const Model &model, NodeId callee, SymbolId symbol)
{
    const auto &declared = model.symbols.symbol(symbol);
    const auto range = model.tree[declared.node].range();
    return declared.kind == SymbolKind::Function && model.tree[callee].range().start >= range.start
        && model.tree[callee].range().end <= range.end && model.kind(model.parent(callee)) == NodeKind::Apply;
}

} // namespace

void checkArgumentCount(const Model &model, NodeId call, FindingList &findings)
{
    const auto callee = model.tree[call].firstChild;
    if (model.kind(callee) == NodeKind::Member) {
        const auto object = model.types.of(model.tree.child(callee, 0));
        if (object.ownClass == 0)
            return;
        const auto scope = model.symbols.symbol(object.ownClass).ownScope;
        if (const auto member = model.symbols.declaredIn(scope, model.tree[callee].name))
            checkOwn(model, call, member, findings);
    }
    if (model.kind(callee) != NodeKind::Name)
        return;
    if (const auto symbol = model.symbols.symbolAt(callee)) {
        const auto above = model.parent(call);
        const bool assigned = model.kind(call) == NodeKind::Apply && model.tree[above].firstChild == call
            && (model.kind(above) == NodeKind::Assign || model.kind(above) == NodeKind::SetAssign
                || model.kind(above) == NodeKind::ReDim);
        if (!assigned && !isOwnResult(model, callee, symbol))
            checkOwn(model, call, symbol, findings);
    } else if (const auto *function = model.builtinAt(callee)) {
        // A script that is loaded beside this one may have a procedure of that name: Log is a favourite.
        if (!model.namesAreComplete()
            && (model.kind(call) == NodeKind::CallStatement || function->name == "Log"))
            return;
        checkCount(model, call, function->parameters.least(), function->parameters.most(), findings);
    }
}

} // namespace kevra::script
