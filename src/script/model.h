// SPDX-License-Identifier: GPL-3.0-or-later
// What the rules examine: the syntax tree, its symbols, and the types of its expressions.
#pragma once

#include "script/analysis.h"
#include "script/symbols.h"
#include "script/types.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra::script {

class Model {
public:
    Model(const ParsedScript &parsed, const Surroundings &where);

    const ParsedScript &script;
    const Tree &tree;
    const Surroundings surroundings;
    const Symbols symbols;
    const Types types;

    /// Statements given as text (Execute, ExecuteGlobal, Eval) may use and declare any name.
    [[nodiscard]] bool executesText() const { return m_executesText; }
    /// Every name must be declared by the script itself or by the host.
    [[nodiscard]] bool namesAreComplete() const { return !surroundings.includesOthers && !m_executesText; }
    /// The script contains Option Explicit.
    [[nodiscard]] bool isExplicit() const { return m_optionExplicit != 0; }
    /// The script uses objects or procedures that an unknown host must provide.
    [[nodiscard]] bool hasUnknownHost() const { return m_hasUnknownHost; }
    /// Whether the value of a class member is read anywhere in the script.
    [[nodiscard]] bool isMemberRead(SymbolId member) const { return m_memberRead[member]; }

    [[nodiscard]] NodeKind kind(NodeId id) const { return tree[id].kind; }
    [[nodiscard]] NodeId parent(NodeId id) const { return symbols.parent(id); }
    [[nodiscard]] std::string_view spelling(NodeId id) const { return script.names.spelling(tree[id].name); }
    [[nodiscard]] std::string_view spelling(NameId name) const { return script.names.spelling(name); }
    [[nodiscard]] std::string_view nameOf(SymbolId id) const { return spelling(symbols.symbol(id).name); }
    /// The source in quotes, shortened if it is long.
    [[nodiscard]] std::string quoted(NodeId id) const;
    [[nodiscard]] static std::string quoted(std::string_view text);
    [[nodiscard]] Offset lineOf(Offset offset) const;
    /// The range of a symbol's name in its declaration.
    [[nodiscard]] TextRange declarationRange(SymbolId id) const;
    /// Null for names that the script itself declares.
    [[nodiscard]] const struct BuiltinFunction *builtinAt(NodeId name) const;
    /// Whether a name that the script does not declare is defined by the language or the host.
    [[nodiscard]] bool isProvided(NodeId name) const;
    /// The nearest enclosing node of that kind within the same procedure, or 0.
    [[nodiscard]] NodeId around(NodeId id, NodeKind kind) const;
    /// The procedure around a node, or 0.
    [[nodiscard]] NodeId procedureAround(NodeId id) const;
    /// The index of the separately compiled unit that a node belongs to.
    [[nodiscard]] std::ptrdiff_t unitOf(NodeId id) const;
    [[nodiscard]] bool sameText(NodeId a, NodeId b) const;

private:
    void look();

    bool m_executesText = false;
    NodeId m_optionExplicit = 0;
    bool m_hasUnknownHost = false;
    std::vector<bool> m_memberRead; ///< by symbol
    mutable std::optional<LineIndex> m_lines;
};

[[nodiscard]] constexpr bool isProcedure(NodeKind kind)
{
    return kind >= NodeKind::Sub && kind <= NodeKind::PropertySet;
}

/// Collects what the rules find.
class FindingList {
public:
    Finding &add(Rule rule, TextRange range, std::string what)
    {
        return m_findings.emplace_back(Finding{rule, range, std::move(what), {}, {}});
    }
    [[nodiscard]] std::vector<Finding> take() { return std::move(m_findings); }

private:
    std::vector<Finding> m_findings;
};

} // namespace kevra::script
