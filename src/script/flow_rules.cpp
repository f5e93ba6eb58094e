// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/rule_tables.h"
#include "script/sorted_names.h"

#include <algorithm>

namespace kevra::script {
namespace {

constexpr unsigned ifLevels = 20;

[[nodiscard]] bool isNamed(std::string_view name, std::string_view other)
{
    return !comesBefore(name, other) && !comesBefore(other, name);
}

/// Declarations are not executed: procedures often follow the end of the main script.
[[nodiscard]] bool isExecutable(NodeKind kind)
{
    return kind >= NodeKind::Assign && kind <= NodeKind::Stop && kind != NodeKind::Output;
}

[[nodiscard]] bool quitsScript(const Model &model, NodeId call)
{
    const auto callee = model.tree.child(call, 0);
    if (model.kind(callee) != NodeKind::Member || !isNamed(model.spelling(callee), "Quit"))
        return false;
    return model.types.of(model.tree.child(callee, 0)).id == TypeId::WScript;
}

/// Whether a node contains an Exit Do that leaves a loop outside the node.
[[nodiscard]] bool holdsExitDo(const Model &model, NodeId id)
{
    const auto kind = model.kind(id);
    if (kind == NodeKind::Wrong)
        return true;
    if (kind == NodeKind::Exit)
        return model.tree[id].name == static_cast<NameId>(Keyword::Do);
    for (const auto child : model.tree.children(id)) {
        if (model.kind(child) != NodeKind::DoLoop && holdsExitDo(model, child))
            return true;
    }
    return false;
}

/// A Do loop without a condition and without an Exit Do.
[[nodiscard]] bool isEndless(const Model &model, NodeId loop)
{
    const auto first = model.tree.child(loop, 0);
    return (first == 0 || model.kind(first) == NodeKind::Block || model.kind(first) == NodeKind::Omitted)
        && !holdsExitDo(model, loop);
}

[[nodiscard]] bool neverContinues(const Model &model, NodeId statement, unsigned levels);

[[nodiscard]] bool lastNeverGoesOn(const Model &model, NodeId branch, unsigned levels)
{
    const auto block = model.tree.lastChild(branch);
    const auto last = model.kind(block) == NodeKind::Block ? model.tree.lastChild(block) : 0;
    return last != 0 && neverContinues(model, last, levels);
}

/// Whether the statement after this one can never run. Looks into `levels` nested If.
[[nodiscard]] bool neverContinues(const Model &model, NodeId statement, unsigned levels)
{
    switch (model.kind(statement)) {
    case NodeKind::Exit:
        return true;
    case NodeKind::CallStatement:
        return quitsScript(model, statement);
    case NodeKind::DoLoop:
        return isEndless(model, statement);
    case NodeKind::If: {
        bool hasElse = false;
        for (const auto branch : model.tree.children(statement)) {
            hasElse = hasElse || model.kind(branch) == NodeKind::ElseBranch;
            if (levels == 0 || !lastNeverGoesOn(model, branch, levels - 1))
                return false;
        }
        return hasElse;
    }
    default:
        return false;
    }
}

/// A property that only makes a call, such as Err.Raise, is a stub.
[[nodiscard]] bool doesMoreThanCall(const Model &model, NodeId block)
{
    for (const auto statement : model.tree.children(block)) {
        if (isExecutable(model.kind(statement)) && model.kind(statement) != NodeKind::CallStatement)
            return true;
    }
    return false;
}

/// Whether a statement in a loop is executed only in some iterations.
[[nodiscard]] bool isConditional(const Model &model, NodeId statement, NodeId loop)
{
    for (auto at = model.parent(statement); at != loop && at != 0; at = model.parent(at)) {
        const auto kind = model.kind(at);
        if (kind == NodeKind::If || kind == NodeKind::Select)
            return true;
    }
    return false;
}

/// Whether the loop is left right after the statement.
[[nodiscard]] bool isFollowedByExit(const Model &model, NodeId statement)
{
    const auto next = model.tree[statement].nextSibling;
    return next != 0 && neverContinues(model, next, ifLevels);
}

/// Whether a call's result is assigned to a variable that is never read. Often that is just a way to write a
/// call.
[[nodiscard]] bool isDropped(const Model &model, const Reference &use)
{
    auto call = use.node;
    if (use.access == Access::Index)
        call = model.parent(call);
    const auto assignment = model.parent(call);
    if (model.kind(assignment) != NodeKind::Assign || model.tree.child(assignment, 1) != call)
        return false;
    const auto variable = model.symbols.symbolAt(model.tree.child(assignment, 0));
    return variable != 0 && model.kind(model.tree.child(assignment, 0)) == NodeKind::Name
        && std::ranges::all_of(
            model.symbols.references(variable), [](const Reference &r) { return r.access == Access::Write; });
}

} // namespace

void checkUnreachable(const Model &model, NodeId block, FindingList &findings)
{
    NodeId stop = 0;
    for (const auto statement : model.tree.children(block)) {
        // An event handler that ends early does not stop the scripts after it.
        if (stop != 0 && model.unitOf(stop) != model.unitOf(statement))
            stop = 0;
        if (stop != 0 && isExecutable(model.kind(statement))) {
            findings
                .add(Rule::UnreachableCode, model.tree[statement].range(),
                    "This is never reached: " + model.quoted(stop) + " in line "
                        + std::to_string(model.lineOf(model.tree[stop].range().start)) + " does not go on.")
                .related.push_back({model.tree[stop].range(), "Nothing after this statement runs."});
            return;
        }
        if (stop == 0 && isExecutable(model.kind(statement)) && neverContinues(model, statement, ifLevels))
            stop = statement;
    }
}

void checkLoopVariableChanged(const Model &model, SymbolId symbol, FindingList &findings)
{
    const auto uses = model.symbols.references(symbol);
    if (std::ranges::none_of(uses, [](const Reference &use) { return use.access == Access::Loop; }))
        return;
    for (const auto &use : uses) {
        if (use.access != Access::Write && use.access != Access::Loop && use.access != Access::LoopEach)
            continue;
        const auto statement = model.parent(use.node);
        for (auto loop = model.around(statement, NodeKind::For); loop != 0;
             loop = model.around(loop, NodeKind::For)) {
            const auto variable = model.tree.child(loop, 0);
            if (variable == use.node || model.symbols.symbolAt(variable) != symbol)
                continue;
            // Under a condition this skips iterations, or makes this one the last.
            if ((use.access == Access::Write && isConditional(model, statement, loop))
                || isFollowedByExit(model, statement))
                break;
            findings
                .add(Rule::LoopVariableChanged, model.tree[use.node].range(),
                    Model::quoted(model.nameOf(symbol)) + " counts the For in line "
                        + std::to_string(model.lineOf(model.tree[loop].range().start))
                        + " and is changed inside of it.")
                .related.push_back({model.tree[variable].range(), "The loop counts with this variable."});
            break;
        }
    }
}

void checkFunctionWithoutResult(const Model &model, SymbolId symbol, FindingList &findings)
{
    const auto &function = model.symbols.symbol(symbol);
    if (function.ownScope == 0 || model.executesText())
        return;
    const auto kind = model.kind(function.node);
    const bool property = kind == NodeKind::PropertyGet;
    if ((kind != NodeKind::Function || function.redeclared) && !property)
        return;
    const auto block = model.tree.lastChild(function.node);
    if (model.kind(block) != NodeKind::Block || model.tree[block].firstChild == 0)
        return;
    const auto body = model.tree[function.node].range();
    const auto isInside = [&](const Reference &use) {
        const auto start = model.tree[use.node].range().start;
        return start >= body.start && start < body.end;
    };
    const auto first = model.symbols.declaredIn(function.scope, function.name);
    bool valueUsed = model.isMemberRead(first) || (property && doesMoreThanCall(model, block));
    // Get, Let and Set share a name; it is bound to the first of them.
    for (const auto &use : model.symbols.references(first)) {
        const bool asStatement = use.access == Access::Call;
        const bool recursion = use.access == Access::Index;
        if (isInside(use) && !asStatement && !recursion && use.access != Access::Read)
            return;
        valueUsed = valueUsed || (!isInside(use) && !asStatement && !isDropped(model, use));
    }
    if (!valueUsed)
        return;
    findings.add(Rule::FunctionWithoutResult, model.declarationRange(symbol),
        Model::quoted(model.nameOf(symbol)) + " never sets its result, which is used elsewhere.");
}

namespace {

/// Whether the script, or possibly an included file, checks for errors anywhere.
bool checksErrors(const Model &model)
{
    if (model.surroundings.includesOthers)
        return true;
    const auto err = model.script.names.find("Err");
    if (err == NameId::None)
        return false;
    for (NodeId id = 1; id < model.tree.size(); ++id)
        if (model.kind(id) == NodeKind::Name && model.tree[id].name == err)
            return true;
    return false;
}

/// Whether so little code follows that its errors may not matter.
bool isNearEnd(const Model &model, NodeId statement)
{
    constexpr int fewStatements = 4;
    int after = 0;
    for (NodeId id = 1; id < model.tree.size() && after <= fewStatements; ++id)
        after += isExecutable(model.kind(id)) && model.tree[id].start > model.tree[statement].start ? 1 : 0;
    return after <= fewStatements;
}

/// Whether no other statement of the script runs before this one.
bool isFirst(const Model &model, NodeId statement)
{
    for (const auto other : model.tree.children(model.tree.root())) {
        if (other == statement)
            return true;
        if (isExecutable(model.kind(other)))
            return false;
    }
    return false;
}

} // namespace

void checkResumeNextNeverEnds(const Model &model, FindingList &findings)
{
    if (checksErrors(model))
        return;
    NodeId open = 0;
    for (NodeId id = 1; id < model.tree.size(); ++id) {
        const auto kind = model.kind(id);
        if ((kind != NodeKind::OnErrorResumeNext && kind != NodeKind::OnErrorGoTo0)
            || model.procedureAround(id) != 0)
            continue;
        if (kind == NodeKind::OnErrorGoTo0)
            open = 0;
        else if (open == 0)
            open = id;
    }
    if (open == 0 || isNearEnd(model, open))
        return;
    if (isFirst(model, open))
        findings.add(Rule::ErrorsIgnored, model.tree[open].range(),
            "Every error in the script passes unnoticed, misspelled names too.");
    else
        findings.add(Rule::ResumeNextNeverEnds, model.tree[open].range(),
            "From here to the end of the script every error passes unnoticed: no On Error GoTo 0 follows.");
}

} // namespace kevra::script
