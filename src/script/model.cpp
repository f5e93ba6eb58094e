// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/model.h"

#include "script/builtins.h"
#include "script/sorted_names.h"

#include <algorithm>

namespace kevra::script {

Model::Model(const ParsedScript &parsed, const Surroundings &where)
    : script(parsed)
    , tree(parsed.tree)
    , surroundings(where)
    , symbols(parsed)
    , types(parsed, symbols, surroundings)
    , m_memberRead(symbols.symbolCount())
{
    look();
}

void Model::look()
{
    for (NodeId id = 1; id < tree.size(); ++id) {
        const auto &node = tree[id];
        if (node.kind == NodeKind::OptionExplicit)
            m_optionExplicit = id;
        else if (node.kind == NodeKind::Member) {
            const auto above = parent(id);
            const bool called = kind(above) == NodeKind::CallStatement && tree.child(above, 0) == id;
            const auto owner = called ? 0 : types.of(tree.child(id, 0)).ownClass;
            if (owner != 0)
                m_memberRead[symbols.declaredIn(symbols.symbol(owner).ownScope, node.name)] = true;
        }
    }
    for (const auto &use : symbols.references(0)) {
        const bool usedAsHost
            = use.access == Access::Object || use.access == Access::Index || use.access == Access::Call;
        if (!usedAsHost)
            continue;
        if (const auto *function = symbols.builtins().function(tree[use.node].name))
            m_executesText
                = m_executesText || function->name.starts_with("Execute") || function->name == "Eval";
        else if (!isProvided(use.node))
            m_hasUnknownHost = true;
    }
}

std::string Model::quoted(NodeId id) const
{
    return quoted(script.textOf(id));
}

std::string Model::quoted(std::string_view text)
{
    constexpr std::size_t longest = 40;
    const auto cut = std::min({text.find_first_of("\r\n"), text.size(), longest});
    return "'" + std::string(text.substr(0, cut)) + (cut < text.size() ? "...'" : "'");
}

Offset Model::lineOf(Offset offset) const
{
    if (!m_lines)
        m_lines.emplace(script.text);
    return m_lines->lineAt(offset);
}

TextRange Model::declarationRange(SymbolId id) const
{
    const auto node = symbols.symbol(id).node;
    return script.nameRange(node);
}

const BuiltinFunction *Model::builtinAt(NodeId name) const
{
    return kind(name) == NodeKind::Name && symbols.symbolAt(name) == 0
        ? symbols.builtins().function(tree[name].name)
        : nullptr;
}

bool Model::isProvided(NodeId name) const
{
    return symbols.builtins().contains(tree[name].name) || types.ofProvided(spelling(name));
}

NodeId Model::around(NodeId id, NodeKind sought) const
{
    // Deeper than real scripts nest; the bound keeps hostile ones linear.
    constexpr unsigned maxLevels = 200;
    unsigned levels = 0;
    for (auto at = parent(id); at != 0 && ++levels < maxLevels; at = parent(at)) {
        if (kind(at) == sought)
            return at;
        if (isProcedure(kind(at)))
            return 0;
    }
    return 0;
}

NodeId Model::procedureAround(NodeId id) const
{
    auto at = parent(id);
    while (at != 0 && !isProcedure(kind(at)))
        at = parent(at);
    return at;
}

std::ptrdiff_t Model::unitOf(NodeId id) const
{
    return std::ranges::upper_bound(script.unitStarts, tree[id].range().start) - script.unitStarts.begin();
}

bool Model::sameText(NodeId a, NodeId b) const
{
    const auto first = script.textOf(a);
    const auto second = script.textOf(b);
    return !comesBefore(first, second) && !comesBefore(second, first);
}

} // namespace kevra::script
