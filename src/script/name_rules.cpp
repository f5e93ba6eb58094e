// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/builtins.h"
#include "script/nearness.h"
#include "script/rule_tables.h"

#include <algorithm>
#include <unordered_set>

namespace kevra::script {
namespace {

/// The search for similar names stops after this many comparisons, so that hostile scripts stay linear.
constexpr unsigned maxComparisons = 2'000'000;

[[nodiscard]] bool isRead(Access access)
{
    return access == Access::Read || access == Access::Argument || access == Access::Object
        || access == Access::Index || access == Access::Call;
}

/// Finds the declared name that was probably meant.
class DeclaredNames {
public:
    explicit DeclaredNames(const Model &model)
        : m_model(model)
    {
    }

    [[nodiscard]] SymbolId meantBy(NodeId name, ScopeId scope)
    {
        const auto written = m_model.spelling(name);
        for (;; scope = m_model.symbols.scope(scope).parent) {
            for (auto id = m_model.symbols.scope(scope).firstSymbol; id != 0;
                 id = m_model.symbols.symbol(id).nextInScope) {
                if (++m_comparisons > maxComparisons)
                    return 0;
                if (m_model.symbols.symbol(id).kind != SymbolKind::Implicit
                    && isSlip(written, m_model.nameOf(id)))
                    return id;
            }
            if (scope == 0)
                return 0;
        }
    }

private:
    const Model &m_model;
    unsigned m_comparisons = 0;
};

[[nodiscard]] const Reference &firstUse(const Model &model, SymbolId symbol)
{
    const auto uses = model.symbols.references(symbol);
    return *std::ranges::min_element(
        uses, {}, [&](const Reference &use) { return model.tree[use.node].start; });
}

void addChangeFix(const Model &model, Finding &finding, SymbolId meant)
{
    const auto name = std::string(model.nameOf(meant));
    finding.fixes.push_back({"Change to " + name, {{finding.range, name}}});
    finding.related.push_back({model.declarationRange(meant), "This name is declared."});
}

/// Elements of a page and objects of a host file are names too, declared outside the script.
[[nodiscard]] bool mayBeNamedOutside(const Model &model)
{
    return model.surroundings.host == Host::Page || model.surroundings.host == Host::HostFile;
}

[[nodiscard]] bool hasTopLevelCode(const Model &model)
{
    for (const auto statement : model.tree.children(model.tree.root())) {
        if (model.kind(statement) >= NodeKind::Assign)
            return true;
    }
    return false;
}

void reportUndeclared(const Model &model, NodeId name, SymbolId meant, bool canDeclare, FindingList &findings)
{
    const auto range = model.tree[name].range();
    auto &finding = findings.add(Rule::UndeclaredName, range,
        model.quoted(name) + " is not declared, which Option Explicit asks for.");
    if (meant != 0)
        addChangeFix(model, finding, meant);
    const auto procedure = model.procedureAround(name);
    const auto block = procedure != 0 ? model.tree.lastChild(procedure) : 0;
    const auto first = model.kind(block) == NodeKind::Block ? model.tree[block].firstChild : 0;
    if (canDeclare && first != 0) {
        const auto place = model.tree[first].range().start;
        finding.fixes.push_back({"Declare it in the procedure",
            {{{place, place}, "Dim " + std::string(model.spelling(name)) + " : "}}});
    }
}

} // namespace

void checkUndeclared(const Model &model, FindingList &findings)
{
    // Option Explicit applies to its compilation unit; a server page is one unit.
    const bool forAll = model.script.unitStarts.size() <= 1 || model.surroundings.host == Host::ServerPage;
    if (!model.isExplicit() || !forAll || !model.namesAreComplete())
        return;
    DeclaredNames declared(model);
    for (SymbolId id = 1; id < model.symbols.symbolCount(); ++id) {
        if (model.symbols.symbol(id).kind != SymbolKind::Implicit)
            continue;
        const auto &use = firstUse(model, id);
        const auto meant = declared.meantBy(use.node, use.scope);
        if (meant != 0 || !mayBeNamedOutside(model))
            reportUndeclared(model, use.node, meant, true, findings);
    }
    const bool noMoreNames
        = model.surroundings.host == Host::ScriptFile && !model.hasUnknownHost() && hasTopLevelCode(model);
    std::unordered_set<std::uint64_t> seen;
    for (const auto &use : model.symbols.references(0)) {
        const auto name = static_cast<std::uint32_t>(model.tree[use.node].name);
        if (!isRead(use.access) || !seen.insert(std::uint64_t{use.scope} << 32 | name).second
            || model.isProvided(use.node))
            continue;
        const auto meant = declared.meantBy(use.node, use.scope);
        if (meant == 0 && !noMoreNames)
            continue;
        reportUndeclared(model, use.node, meant, false, findings);
    }
}

void checkMisspelled(const Model &model, FindingList &findings)
{
    if (model.isExplicit() || !model.namesAreComplete())
        return;
    DeclaredNames declared(model);
    const auto report = [&](NodeId name, SymbolId meant, std::string_view what) {
        addChangeFix(model,
            findings.add(Rule::MisspelledName, model.tree[name].range(),
                model.quoted(name) + " is " + std::string(what) + "; " + Model::quoted(model.nameOf(meant))
                    + " is declared."),
            meant);
    };
    for (SymbolId id = 1; id < model.symbols.symbolCount(); ++id) {
        if (model.symbols.symbol(id).kind != SymbolKind::Implicit)
            continue;
        const auto uses = model.symbols.references(id);
        if (std::ranges::any_of(uses, [](const Reference &use) { return isRead(use.access); }))
            continue;
        const auto &use = firstUse(model, id);
        const auto meant = declared.meantBy(use.node, use.scope);
        // Of procedures only the enclosing function can be assigned: that sets its result.
        const bool canBeAssigned = meant != 0
            && (model.symbols.symbol(meant).ownScope == 0
                || model.symbols.symbol(meant).ownScope == use.scope);
        if (canBeAssigned)
            report(use.node, meant, "assigned and never read");
    }
    std::unordered_set<NameId> seen;
    for (const auto &use : model.symbols.references(0)) {
        const auto name = model.tree[use.node].name;
        if (!isRead(use.access) || !seen.insert(name).second || model.isProvided(use.node))
            continue;
        if (const auto meant = declared.meantBy(use.node, use.scope))
            report(use.node, meant, "never given a value");
    }
}

namespace {

/// Whether nothing outside the script can use the symbol.
[[nodiscard]] bool isOnlyUsedHere(const Model &model, const Symbol &symbol)
{
    const auto scope = model.symbols.scope(symbol.scope).kind;
    return !model.executesText() && scope != ScopeKind::Class && !symbol.redeclared
        && (scope == ScopeKind::Procedure
            || (!model.surroundings.includesOthers && model.surroundings.host == Host::ScriptFile));
}

/// Removes a variable or constant from its list, or the whole statement if it is the only one.
[[nodiscard]] TextEdit removal(const Model &model, NodeId variable)
{
    const auto statement = model.parent(variable);
    const auto range = model.tree[variable].range();
    if (const auto next = model.tree[variable].nextSibling)
        return {{range.start, model.tree[next].range().start}, ""};
    NodeId before = 0;
    for (const auto child : model.tree.children(statement)) {
        if (child != variable)
            before = child;
    }
    return before != 0 ? TextEdit{{model.tree[before].range().end, range.end}, ""}
                       : TextEdit{model.tree[statement].range(), ""};
}

} // namespace

void checkRedefined(const Model &model, SymbolId id, FindingList &findings)
{
    const auto &symbol = model.symbols.symbol(id);
    if (!symbol.redeclared)
        return;
    const bool inClass = model.symbols.scope(symbol.scope).kind == ScopeKind::Class;
    for (const auto other : model.symbols.declarations(symbol.scope, symbol.name)) {
        if (other == id)
            return;
        const auto &first = model.symbols.symbol(other);
        const bool procedures = first.ownScope != 0 && symbol.ownScope != 0;
        // The last procedure of a name is the one that counts; Get, Let and Set are one property.
        const bool together = procedures
            && (inClass
                    ? model.kind(first.node) != model.kind(symbol.node) && first.kind == SymbolKind::Property
                    : first.kind != SymbolKind::Class && symbol.kind != SymbolKind::Class);
        if (together || model.unitOf(first.node) != model.unitOf(symbol.node))
            continue;
        const auto range = model.declarationRange(other);
        findings
            .add(Rule::NameRedefined, model.declarationRange(id),
                Model::quoted(model.nameOf(id)) + " was already declared in line "
                    + std::to_string(model.lineOf(range.start)) + ".")
            .related.push_back({range, "This is the first declaration."});
        return;
    }
}

void checkConstantAssigned(const Model &model, SymbolId id, FindingList &findings)
{
    const auto &symbol = model.symbols.symbol(id);
    if (symbol.kind != SymbolKind::Constant || symbol.redeclared)
        return;
    for (const auto &use : model.symbols.references(id)) {
        if (!writesWhole(use.access))
            continue;
        findings
            .add(Rule::ConstantAssigned, model.tree[use.node].range(),
                Model::quoted(model.nameOf(id)) + " is a constant and cannot be assigned.")
            .related.push_back({model.declarationRange(id), "This is its declaration."});
    }
}

void checkUnused(const Model &model, SymbolId id, FindingList &findings)
{
    const auto &symbol = model.symbols.symbol(id);
    const bool declared = symbol.kind == SymbolKind::Variable || symbol.kind == SymbolKind::Constant;
    if (!declared || !model.symbols.references(id).empty() || !isOnlyUsedHere(model, symbol))
        return;
    auto &finding = findings.add(Rule::UnusedDeclaration, model.declarationRange(id),
        Model::quoted(model.nameOf(id)) + " is declared and never used.");
    finding.fixes.push_back({"Remove the declaration", {removal(model, symbol.node)}});
}

void checkNeverRead(const Model &model, SymbolId id, FindingList &findings)
{
    const auto &symbol = model.symbols.symbol(id);
    const bool variable = symbol.kind == SymbolKind::Variable || symbol.kind == SymbolKind::Implicit;
    const auto uses = model.symbols.references(id);
    const bool onlyAssigned = !uses.empty() && std::ranges::all_of(uses, [](const Reference &use) {
        return use.access == Access::Write || use.access == Access::Set;
    });
    if (!variable || !onlyAssigned || !isOnlyUsedHere(model, symbol))
        return;
    findings.add(Rule::NeverRead, model.tree[firstUse(model, id).node].range(),
        Model::quoted(model.nameOf(id)) + " is assigned and never read.");
}

void checkShadowed(const Model &model, SymbolId id, FindingList &findings)
{
    const auto &symbol = model.symbols.symbol(id);
    if (symbol.kind == SymbolKind::Implicit || model.symbols.scope(symbol.scope).kind == ScopeKind::Class)
        return;
    const auto name = model.nameOf(id);
    if (model.symbols.builtins().function(symbol.name) || model.symbols.builtins().constant(symbol.name)) {
        findings.add(Rule::ShadowedName, model.declarationRange(id),
            Model::quoted(name) + " hides what VBScript itself calls by this name.");
        return;
    }
    const auto hidden = symbol.scope == 0 ? 0 : model.symbols.declaredIn(0, symbol.name);
    if (hidden == 0 || symbol.ownScope != 0)
        return;
    findings
        .add(Rule::ShadowedName, model.declarationRange(id),
            Model::quoted(name) + " hides the one of the whole script in line "
                + std::to_string(model.lineOf(model.declarationRange(hidden).start)) + ".")
        .related.push_back({model.declarationRange(hidden), "This one is hidden."});
}

} // namespace kevra::script
