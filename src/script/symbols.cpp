// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/symbols.h"

#include <algorithm>
#include <functional>
#include <unordered_set>

namespace kevra::script {
namespace {

[[nodiscard]] constexpr bool isProcedure(NodeKind kind)
{
    return kind >= NodeKind::Sub && kind <= NodeKind::PropertySet;
}

[[nodiscard]] constexpr SymbolKind symbolKindOf(NodeKind procedure)
{
    return procedure == NodeKind::Sub     ? SymbolKind::Sub
        : procedure == NodeKind::Function ? SymbolKind::Function
                                          : SymbolKind::Property;
}

/// Whether declarations may be inside it, directly or in its children.
bool holdsStatements(NodeKind kind)
{
    switch (kind) {
    case NodeKind::Script:
    case NodeKind::Block:
    case NodeKind::If:
    case NodeKind::IfBranch:
    case NodeKind::ElseBranch:
    case NodeKind::Select:
    case NodeKind::CaseBranch:
    case NodeKind::CaseElse:
    case NodeKind::For:
    case NodeKind::ForEach:
    case NodeKind::DoLoop:
    case NodeKind::While:
    case NodeKind::With:
        return true;
    default:
        return false;
    }
}

} // namespace

class Symbols::Builder {
public:
    Builder(Symbols &symbols, const ParsedScript &script)
        : m_result(symbols)
        , m_script(script)
        , m_tree(script.tree)
        , m_bound(script.names.size())
    {
        symbols.m_symbolAt.resize(m_tree.size());
        symbols.m_parents.resize(m_tree.size());
        declareAll(m_tree.root(), 0);
        declareReDims();
        enter(0);
        visit(m_tree.root(), 0);
        declareImplicit();
        sortReferences();
        sortDeclared();
        std::ranges::sort(symbols.m_withUses, {}, &WithUse::object);
    }

private:
    struct ReDimmed {
        NodeId name;
        ScopeId scope;
    };
    struct Saved {
        NameId name;
        SymbolId before;
    };

    [[nodiscard]] static std::size_t index(NameId name) { return static_cast<std::size_t>(name); }

    SymbolId add(SymbolKind kind, NameId name, ScopeId scope, NodeId node)
    {
        const auto id = static_cast<SymbolId>(m_result.m_symbols.size());
        m_result.m_symbols.push_back(
            {kind, name, scope, 0, node, m_result.m_scopes[scope].firstSymbol, false});
        m_result.m_scopes[scope].firstSymbol = id;
        return id;
    }

    // Declarations first: a name is visible in its whole scope, even before its declaration.

    void declareChildren(NodeId id, ScopeId scope)
    {
        for (const auto child : m_tree.children(id))
            declareAll(child, scope);
    }

    void declareAll(NodeId id, ScopeId scope)
    {
        const auto &node = m_tree[id];
        switch (node.kind) {
        case NodeKind::Dim:
        case NodeKind::Const:
            for (const auto child : m_tree.children(id))
                add(node.kind == NodeKind::Dim ? SymbolKind::Variable : SymbolKind::Constant,
                    m_tree[child].name, scope, child);
            break;
        case NodeKind::ReDim:
            for (const auto apply : m_tree.children(id))
                m_reDims.push_back({m_tree.child(apply, 0), scope});
            break;
        case NodeKind::Sub:
        case NodeKind::Function:
        case NodeKind::PropertyGet:
        case NodeKind::PropertyLet:
        case NodeKind::PropertySet:
            declareOwner(id, scope, symbolKindOf(node.kind), ScopeKind::Procedure);
            break;
        case NodeKind::Class:
            declareOwner(id, scope, SymbolKind::Class, ScopeKind::Class);
            break;
        default:
            if (holdsStatements(node.kind))
                declareChildren(id, scope);
        }
    }

    void declareOwner(NodeId id, ScopeId outer, SymbolKind kind, ScopeKind scopeKind)
    {
        const auto symbol = add(kind, m_tree[id].name, outer, id);
        const auto scope = static_cast<ScopeId>(m_result.m_scopes.size());
        m_result.m_scopes.push_back({scopeKind, outer, id, symbol, 0});
        m_result.m_symbols[symbol].ownScope = scope;
        m_result.m_symbolAt[id] = symbol;
        for (const auto child : m_tree.children(id)) {
            if (m_tree[child].kind == NodeKind::Parameter)
                add(SymbolKind::Parameter, m_tree[child].name, scope, child);
            else
                declareAll(child, scope);
        }
    }

    /// ReDim declares a name that is not declared otherwise.
    void declareReDims()
    {
        std::unordered_set<std::uint64_t> known;
        const auto key = [](ScopeId scope, NameId name) { return std::uint64_t{scope} << 32 | index(name); };
        for (const auto &symbol : m_result.m_symbols) {
            if (!m_reDims.empty())
                known.insert(key(symbol.scope, symbol.name));
        }
        for (const auto &reDim : m_reDims) {
            const auto &node = m_tree[reDim.name];
            bool isKnown = node.kind != NodeKind::Name || known.contains(key(0, node.name));
            for (auto scope = reDim.scope; !isKnown && scope != 0; scope = m_result.m_scopes[scope].parent)
                isKnown = known.contains(key(scope, node.name));
            if (!isKnown) {
                add(SymbolKind::Variable, node.name, reDim.scope, reDim.name);
                known.insert(key(reDim.scope, node.name));
            }
        }
    }

    // Then the uses, each bound to the symbol visible there.

    void enter(ScopeId scope)
    {
        // The first declaration is last in the list, and is the one that counts.
        for (auto id = m_result.m_scopes[scope].firstSymbol; id != 0;
             id = m_result.m_symbols[id].nextInScope) {
            const auto name = m_result.m_symbols[id].name;
            auto &bound = m_bound[index(name)];
            if (bound != 0 && m_result.m_symbols[bound].scope == scope)
                m_result.m_symbols[bound].redeclared = m_result.m_symbols[id].redeclared = true;
            m_saved.push_back({name, bound});
            bound = id;
        }
    }

    void leave(std::size_t savedBefore)
    {
        while (m_saved.size() > savedBefore) {
            m_bound[index(m_saved.back().name)] = m_saved.back().before;
            m_saved.pop_back();
        }
    }

    void visitInScope(NodeId id, ScopeId outer)
    {
        const auto symbol = m_result.m_symbolAt[id];
        if (symbol == 0) // in a statement that was not understood
            return visitChildren(id, outer);
        const auto saved = m_saved.size();
        enter(m_result.m_symbols[symbol].ownScope);
        visitChildren(id, m_result.m_symbols[symbol].ownScope);
        leave(saved);
    }

    void visitChildren(NodeId id, ScopeId scope)
    {
        for (const auto child : m_tree.children(id)) {
            m_result.m_parents[child] = id;
            visit(child, scope);
        }
    }

    /// How a node accesses its first child, if that differs from the others.
    static std::optional<Access> accessOfFirst(NodeKind kind, Access access)
    {
        switch (kind) {
        case NodeKind::Member:
            return Access::Object;
        case NodeKind::Apply:
            return access == Access::Write ? Access::WriteElement
                : access == Access::Set    ? Access::SetElement
                : access == Access::ReDim  ? Access::ReDim
                                           : Access::Index;
        case NodeKind::CallStatement:
            return Access::Call;
        case NodeKind::Assign:
            return Access::Write;
        case NodeKind::SetAssign:
            return Access::Set;
        case NodeKind::For:
            return Access::Loop;
        case NodeKind::ForEach:
            return Access::LoopEach;
        default:
            return std::nullopt;
        }
    }

    void visit(NodeId id, ScopeId scope, Access access = Access::Read)
    {
        const auto &node = m_tree[id];
        if (const auto first = accessOfFirst(node.kind, access))
            return visitFirst(id, scope, *first);
        switch (node.kind) {
        case NodeKind::Name:
            return use(id, scope, access);
        case NodeKind::Identifier:
            return;
        case NodeKind::WithObject:
            if (m_with != 0)
                m_result.m_withUses.push_back({id, m_with});
            return;
        case NodeKind::With:
            return visitWith(id, scope);
        case NodeKind::ReDim:
            for (const auto child : m_tree.children(id)) {
                m_result.m_parents[child] = id;
                visit(child, scope, Access::ReDim);
            }
            return;
        default:
            if (isProcedure(node.kind) || node.kind == NodeKind::Class)
                visitInScope(id, scope);
            else
                visitChildren(id, scope);
        }
    }

    /// Visits the first child with the access given. The others are read, or arguments if this is a call.
    void visitFirst(NodeId id, ScopeId scope, Access first)
    {
        const bool call = m_tree[id].kind == NodeKind::Apply || m_tree[id].kind == NodeKind::CallStatement;
        auto access = first;
        for (const auto child : m_tree.children(id)) {
            m_result.m_parents[child] = id;
            visit(child, scope, access);
            access = call ? Access::Argument : Access::Read;
        }
    }

    void visitWith(NodeId id, ScopeId scope)
    {
        const auto expression = m_tree.child(id, 0);
        const auto block = m_tree.child(id, 1);
        m_result.m_parents[expression] = id;
        visit(expression, scope, Access::Object);
        if (block == 0)
            return;
        m_result.m_parents[block] = id;
        const auto outer = m_with;
        m_with = expression;
        visit(block, scope);
        m_with = outer;
    }

    void use(NodeId id, ScopeId scope, Access access)
    {
        const auto symbol = m_bound[index(m_tree[id].name)];
        m_result.m_symbolAt[id] = symbol;
        if (symbol == 0)
            m_unbound.push_back({id, 0, scope, access});
        else
            m_result.m_references.push_back({id, symbol, scope, access});
    }

    /// A name that is assigned without a declaration is a variable: global if assigned outside of procedures,
    /// else local to the procedure.
    void declareImplicit()
    {
        groupBy(
            m_unbound, m_script.names.size(), [&](const Reference &r) { return index(m_tree[r.node].name); });
        for (auto first = m_unbound.begin(); first != m_unbound.end();) {
            const auto name = m_tree[first->node].name;
            const auto last = std::find_if(
                first, m_unbound.end(), [&](const Reference &r) { return m_tree[r.node].name != name; });
            if (!m_result.m_builtins.contains(name))
                declareImplicit({first, last});
            first = last;
        }
        m_result.m_references.insert(m_result.m_references.end(), m_unbound.begin(), m_unbound.end());
    }

    void declareImplicit(std::span<Reference> uses)
    {
        const auto global = std::ranges::find_if(
            uses, [](const Reference &r) { return r.scope == 0 && writesWhole(r.access); });
        if (global != uses.end())
            return bindImplicit(uses, *global);
        if (!std::ranges::is_sorted(uses, {}, &Reference::scope))
            std::ranges::stable_sort(uses, {}, &Reference::scope);
        for (auto first = uses.begin(); first != uses.end();) {
            const auto last = std::find_if(
                first, uses.end(), [&](const Reference &r) { return r.scope != first->scope; });
            const auto write
                = std::find_if(first, last, [](const Reference &r) { return writesWhole(r.access); });
            if (write != last)
                bindImplicit({first, last}, *write);
            first = last;
        }
    }

    void bindImplicit(std::span<Reference> uses, const Reference &write)
    {
        const auto symbol = add(SymbolKind::Implicit, m_tree[write.node].name, write.scope, write.node);
        for (auto &use : uses) {
            use.symbol = symbol;
            m_result.m_symbolAt[use.node] = symbol;
        }
    }

    void sortReferences()
    {
        m_result.m_firstReference
            = groupBy(m_result.m_references, m_result.m_symbols.size(), &Reference::symbol);
    }

    void sortDeclared()
    {
        auto &declared = m_result.m_declared;
        declared.reserve(m_result.m_symbols.size());
        for (SymbolId id = 1; id < m_result.m_symbols.size(); ++id)
            declared.push_back({m_result.m_symbols[id].scope, m_result.m_symbols[id].name, id});
        groupBy(declared, m_script.names.size(), [](const Declared &d) { return index(d.name); });
        groupBy(declared, m_result.m_scopes.size(), &Declared::scope);
    }

    /// Sorts rows by their key, which is below `keys`, and returns where each key begins. A stable counting
    /// sort, since there are many rows.
    template <typename Row, typename Key>
    static std::vector<std::uint32_t> groupBy(std::vector<Row> &rows, std::size_t keys, Key key)
    {
        std::vector<std::uint32_t> first(keys + 1, 0);
        for (const auto &row : rows)
            ++first[std::invoke(key, row) + 1];
        for (std::size_t i = 1; i < first.size(); ++i)
            first[i] += first[i - 1];
        std::vector<Row> sorted(rows.size());
        auto next = first;
        for (const auto &row : rows)
            sorted[next[std::invoke(key, row)]++] = row;
        rows = std::move(sorted);
        return first;
    }

    Symbols &m_result;
    const ParsedScript &m_script;
    const Tree &m_tree;
    std::vector<SymbolId> m_bound; ///< by name
    std::vector<Saved> m_saved;
    std::vector<ReDimmed> m_reDims;
    std::vector<Reference> m_unbound;
    NodeId m_with = 0;
};

Symbols::Symbols(const ParsedScript &script)
    : m_builtins(script.names)
{
    Builder(*this, script);
}

SymbolId Symbols::declaredIn(ScopeId scope, NameId name) const
{
    const auto at = std::ranges::lower_bound(m_declared, Declared{scope, name, 0});
    return at != m_declared.end() && at->scope == scope && at->name == name ? at->symbol : 0;
}

std::vector<SymbolId> Symbols::declarations(ScopeId scope, NameId name) const
{
    // Further declarations of the same name add nothing.
    constexpr std::size_t most = 16;
    std::vector<SymbolId> found;
    for (auto at = std::ranges::lower_bound(m_declared, Declared{scope, name, 0});
         at != m_declared.end() && at->scope == scope && at->name == name && found.size() < most; ++at)
        found.push_back(at->symbol);
    return found;
}

NodeId Symbols::withExpression(NodeId withObject) const
{
    const auto at = std::ranges::lower_bound(m_withUses, withObject, {}, &WithUse::object);
    return at != m_withUses.end() && at->object == withObject ? at->expression : 0;
}

} // namespace kevra::script
