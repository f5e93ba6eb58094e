// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/rule_tables.h"

#include <algorithm>
#include <unordered_set>

namespace kevra::script {
namespace {

[[nodiscard]] NodeId firstStatement(const Model &model)
{
    return model.tree[model.tree.root()].firstChild;
}

[[nodiscard]] TextRange firstLineOf(const Model &model, NodeId statement)
{
    const auto range = model.tree[statement].range();
    const auto end = model.script.textOf(range).find_first_of("\r\n");
    return end == std::string_view::npos ? range
                                         : TextRange{range.start, range.start + static_cast<Offset>(end)};
}

[[nodiscard]] std::string_view lineEndOf(std::string_view text)
{
    const auto at = text.find_first_of("\r\n");
    if (at == std::string_view::npos || text.substr(at, 2) == "\r\n")
        return "\r\n";
    return text.substr(at, 1);
}

/// The undeclared names of each scope. Empty if names may come from elsewhere: a Dim would hide those.
class MissingDeclarations {
public:
    explicit MissingDeclarations(const Model &model)
        : m_model(model)
    {
        if (model.surroundings.host != Host::ScriptFile || model.surroundings.includesOthers
            || model.executesText() || model.hasUnknownHost() || !model.script.findings.empty())
            return;
        m_possible = true;
        for (SymbolId id = 1; id < model.symbols.symbolCount(); ++id) {
            const auto &symbol = model.symbols.symbol(id);
            if (symbol.kind == SymbolKind::Implicit)
                add(symbol.scope, symbol.name);
        }
        for (const auto &use : model.symbols.references(0)) {
            if (!model.isProvided(use.node))
                add(use.scope, model.tree[use.node].name);
        }
        std::ranges::stable_sort(m_missing, {}, &Missing::scope);
    }

    [[nodiscard]] std::optional<Fix> fix() const
    {
        if (!m_possible)
            return std::nullopt;
        Fix fix{"Insert Option Explicit and declare every variable", {}};
        const auto lineEnd = std::string(lineEndOf(m_model.script.text));
        const auto start = m_model.tree[firstStatement(m_model)].range().start;
        const auto globals = declarationOf(0);
        fix.edits.push_back(
            {{start, start}, "Option Explicit" + lineEnd + (globals.empty() ? "" : globals + lineEnd)});
        for (ScopeId scope = 1; scope < m_model.symbols.scopeCount(); ++scope) {
            const auto text = declarationOf(scope);
            const auto block = m_model.tree.lastChild(m_model.symbols.scope(scope).node);
            const auto first = m_model.kind(block) == NodeKind::Block ? m_model.tree[block].firstChild : 0;
            if (text.empty())
                continue;
            if (first == 0)
                return std::nullopt;
            const auto place = m_model.tree[first].range().start;
            fix.edits.push_back({{place, place}, text + separatorBefore(place, lineEnd)});
        }
        std::ranges::sort(fix.edits, {}, [](const TextEdit &edit) { return edit.range.start; });
        return fix;
    }

private:
    struct Missing {
        ScopeId scope;
        NameId name;
    };

    void add(ScopeId scope, NameId name)
    {
        if (m_added.insert(std::uint64_t{scope} << 32 | static_cast<std::uint32_t>(name)).second)
            m_missing.push_back({scope, name});
    }

    [[nodiscard]] std::string declarationOf(ScopeId scope) const
    {
        std::string out;
        const auto first = std::ranges::lower_bound(m_missing, scope, {}, &Missing::scope);
        const auto last = std::ranges::upper_bound(m_missing, scope, {}, &Missing::scope);
        for (auto at = first; at != last; ++at)
            out += (at == first ? "Dim " : ", ") + std::string(m_model.spelling(at->name));
        return out;
    }

    /// A new line with the same indentation, or a colon if a statement precedes on the line.
    [[nodiscard]] std::string separatorBefore(Offset place, const std::string &lineEnd) const
    {
        const auto before = m_model.script.text.substr(0, static_cast<std::size_t>(place));
        const auto line = before.substr(before.find_last_of("\r\n") + 1);
        return line.find_first_not_of(" \t") == std::string_view::npos ? lineEnd + std::string(line) : " : ";
    }

    const Model &m_model;
    bool m_possible = false;
    std::vector<Missing> m_missing;
    std::unordered_set<std::uint64_t> m_added;
};

} // namespace

void checkNoOptionExplicit(const Model &model, FindingList &findings)
{
    const auto first = firstStatement(model);
    if (model.isExplicit() || first == 0)
        return;
    auto &finding = findings.add(Rule::NoOptionExplicit, firstLineOf(model, first),
        "Without Option Explicit a misspelled name is a new, empty variable.");
    if (auto fix = MissingDeclarations(model).fix())
        finding.fixes.push_back(std::move(*fix));
}

} // namespace kevra::script
