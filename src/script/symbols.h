// SPDX-License-Identifier: GPL-3.0-or-later
// The symbol table of a script: every declaration, and every use of a name with the kind of access.
#pragma once

#include "script/builtins.h"
#include "script/tree.h"

#include <cstdint>
#include <span>
#include <vector>

namespace kevra::script {

/// 0 is the global scope.
using ScopeId = std::uint32_t;
/// 0 is no symbol: a built-in name, or one provided from outside.
using SymbolId = std::uint32_t;

enum class ScopeKind : std::uint8_t { Global, Class, Procedure };

struct Scope {
    ScopeKind kind = ScopeKind::Global;
    ScopeId parent = 0;
    NodeId node = 0; ///< the class or procedure; 0 for the global scope
    SymbolId owner = 0; ///< the symbol of that node
    SymbolId firstSymbol = 0; ///< see Symbol::nextInScope
};

enum class SymbolKind : std::uint8_t {
    Variable,
    Constant,
    Parameter,
    Sub,
    Function,
    Property,
    Class,
    Implicit, ///< a variable that is assigned but not declared
};

struct Symbol {
    SymbolKind kind{};
    NameId name = NameId::None;
    ScopeId scope = 0; ///< where it is visible
    ScopeId ownScope = 0; ///< of a class or procedure: the scope it opens
    NodeId node = 0; ///< its declaration: Variable, Constant, Parameter, Sub, ...; its first use if Implicit
    SymbolId nextInScope = 0;
    bool redeclared = false; ///< the scope declares the name again: procedures redefined, Get beside Let
};

enum class Access : std::uint8_t {
    Read,
    Argument, ///< a whole argument of a call, which may change it
    Object, ///< one of its members is used
    Index, ///< followed by parentheses: called or indexed for a value
    Call, ///< called as a statement
    Write,
    WriteElement,
    Set,
    SetElement,
    Loop, ///< the variable of For
    LoopEach,
    ReDim,
};

[[nodiscard]] constexpr bool writesWhole(Access access)
{
    return access == Access::Write || access == Access::Set || access == Access::Loop
        || access == Access::LoopEach;
}

struct Reference {
    NodeId node = 0; ///< a Name
    SymbolId symbol = 0;
    ScopeId scope = 0; ///< the scope around it
    Access access{};
};

class Symbols {
public:
    explicit Symbols(const ParsedScript &script);

    [[nodiscard]] const Scope &scope(ScopeId id) const { return m_scopes[id]; }
    [[nodiscard]] const Symbol &symbol(SymbolId id) const { return m_symbols[id]; }
    /// All ids are below these.
    [[nodiscard]] std::size_t scopeCount() const { return m_scopes.size(); }
    [[nodiscard]] std::size_t symbolCount() const { return m_symbols.size(); }

    /// All uses of a symbol in text order; of symbol 0: the names without a symbol.
    [[nodiscard]] std::span<const Reference> references(SymbolId id) const
    {
        return std::span(m_references)
            .subspan(m_firstReference[id], m_firstReference[id + 1] - m_firstReference[id]);
    }
    /// The symbol of a Name, class or procedure.
    [[nodiscard]] SymbolId symbolAt(NodeId name) const { return m_symbolAt[name]; }
    /// 0 at the root.
    [[nodiscard]] NodeId parent(NodeId id) const { return m_parents[id]; }
    /// The first declaration of `name` in that scope itself, or 0.
    [[nodiscard]] SymbolId declaredIn(ScopeId scope, NameId name) const;
    /// All declarations of `name` in that scope itself, in text order.
    [[nodiscard]] std::vector<SymbolId> declarations(ScopeId scope, NameId name) const;
    [[nodiscard]] const BuiltinNames &builtins() const { return m_builtins; }
    /// The expression of the With that a WithObject refers to, or 0.
    [[nodiscard]] NodeId withExpression(NodeId withObject) const;

private:
    class Builder;

    BuiltinNames m_builtins;
    std::vector<Scope> m_scopes{Scope{}};
    std::vector<Symbol> m_symbols{Symbol{}};
    std::vector<Reference> m_references; ///< by symbol
    std::vector<std::uint32_t> m_firstReference;
    std::vector<SymbolId> m_symbolAt;
    std::vector<NodeId> m_parents;
    struct Declared {
        ScopeId scope;
        NameId name;
        SymbolId symbol;
        friend auto operator<=>(const Declared &, const Declared &) = default;
    };
    std::vector<Declared> m_declared; ///< ascending
    struct WithUse {
        NodeId object;
        NodeId expression;
    };
    std::vector<WithUse> m_withUses; ///< ascending by object
};

} // namespace kevra::script
