// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/references.h"

#include "script/builtins.h"

#include <algorithm>

namespace kevra::script {
namespace {

[[nodiscard]] bool isNamed(NodeKind kind)
{
    return kind == NodeKind::Name || kind == NodeKind::Identifier || kind == NodeKind::Member
        || kind == NodeKind::New;
}

[[nodiscard]] bool contains(TextRange range, Offset offset)
{
    return range.start <= offset && offset <= range.end;
}

[[nodiscard]] Use useOf(Access access)
{
    switch (access) {
    case Access::Write:
    case Access::WriteElement:
    case Access::Set:
    case Access::SetElement:
    case Access::Loop:
    case Access::LoopEach:
    case Access::ReDim:
        return Use::Write;
    default:
        return Use::Read;
    }
}

/// The class of the script whose member is used, or 0.
[[nodiscard]] SymbolId ownerOf(const Model &model, NodeId member)
{
    auto object = model.tree.child(member, 0);
    if (model.kind(object) == NodeKind::WithObject)
        object = model.symbols.withExpression(object);
    if (object == 0 || model.kind(object) != NodeKind::Me)
        return model.types.of(object).ownClass;
    while (object != 0 && model.kind(object) != NodeKind::Class)
        object = model.parent(object);
    return model.symbols.symbolAt(object);
}

/// The class whose member is used, where another file may declare it.
[[nodiscard]] NameId otherClassOf(const Model &model, NodeId member)
{
    return model.types.of(model.tree.child(member, 0)).otherClass;
}

[[nodiscard]] SymbolId declaredBy(const Symbols &symbols, NodeId declaration)
{
    for (SymbolId id = 1; id < symbols.symbolCount(); ++id) {
        if (symbols.symbol(id).node == declaration)
            return id;
    }
    return 0;
}

[[nodiscard]] SymbolId classNamed(const Symbols &symbols, NameId name)
{
    const auto found = symbols.declaredIn(0, name);
    return found != 0 && symbols.symbol(found).kind == SymbolKind::Class ? found : 0;
}

class Collector {
public:
    explicit Collector(const FilePart &part)
        : m_part(part)
        , m_model(part.model)
    {
    }

    void addSymbol(SymbolId id)
    {
        const auto &symbol = m_model.symbols.symbol(id);
        if (symbol.kind != SymbolKind::Implicit)
            m_found.push_back({m_model.declarationRange(id), Use::Declaration});
        addReferences(m_model.symbols.references(id));
    }

    void addUnbound(std::string_view name)
    {
        for (const auto &use : m_model.symbols.references(0)) {
            if (same(m_model.spelling(use.node), name))
                m_found.push_back({m_part.script.nameRange(use.node), useOf(use.access)});
        }
    }

    /// New Name and GetRef("Name"), which refer to global names.
    void addByName(NameId name)
    {
        for (NodeId id = 1; id < m_model.tree.size(); ++id) {
            if (m_model.kind(id) == NodeKind::New && m_model.tree[id].name == name)
                m_found.push_back({m_part.script.nameRange(id), Use::Read});
            else if (m_model.kind(id) == NodeKind::Apply)
                addGetRef(id, name);
        }
    }

    void addMembers(SymbolId owner, NameId name)
    {
        for (NodeId id = 1; id < m_model.tree.size(); ++id) {
            const auto &node = m_model.tree[id];
            if (node.kind == NodeKind::Member && node.name == name && ownerOf(m_model, id) == owner)
                m_found.push_back({m_part.script.nameRange(id), memberUse(id)});
        }
    }

    void addMembersOfOther(NameId otherClass, NameId name)
    {
        for (NodeId id = 1; id < m_model.tree.size(); ++id) {
            if (m_model.kind(id) == NodeKind::Member && m_model.tree[id].name == name
                && otherClassOf(m_model, id) == otherClass)
                m_found.push_back({m_part.script.nameRange(id), memberUse(id)});
        }
    }

    [[nodiscard]] std::vector<Occurrence> take()
    {
        std::ranges::stable_sort(m_found, {}, [](const Occurrence &o) { return o.range.start; });
        const auto samePlace
            = [](const Occurrence &a, const Occurrence &b) { return a.range.start == b.range.start; };
        m_found.erase(std::unique(m_found.begin(), m_found.end(), samePlace), m_found.end());
        return std::move(m_found);
    }

    [[nodiscard]] static bool same(std::string_view a, std::string_view b) { return folded(a) == folded(b); }

private:
    void addReferences(std::span<const Reference> references)
    {
        for (const auto &use : references)
            m_found.push_back({m_part.script.nameRange(use.node), useOf(use.access)});
    }

    void addGetRef(NodeId apply, NameId name)
    {
        const auto argument = m_model.tree.child(apply, 1);
        if (m_model.kind(argument) != NodeKind::String)
            return;
        const auto *function = m_model.builtinAt(m_model.tree.child(apply, 0));
        if (!function || function->name != "GetRef")
            return;
        const auto literal = m_model.tree[argument].range();
        const TextRange inside{literal.start + 1, literal.end - 1};
        if (literal.length() > 2 && same(m_part.script.textOf(inside), m_model.spelling(name)))
            m_found.push_back({inside, Use::Read});
    }

    [[nodiscard]] Use memberUse(NodeId member) const
    {
        const auto above = m_model.parent(member);
        const auto kind = m_model.kind(above);
        const bool assigned = (kind == NodeKind::Assign || kind == NodeKind::SetAssign)
            && m_model.tree.child(above, 0) == member;
        return assigned ? Use::Write : Use::Read;
    }

    const FilePart &m_part;
    const Model &m_model;
    std::vector<Occurrence> m_found;
};

} // namespace

NodeId nameNodeAt(const FilePart &part, Offset offset)
{
    const auto &tree = part.script.tree;
    NodeId found = 0;
    for (NodeId id = 1; id < tree.size(); ++id) {
        const auto &node = tree[id];
        // Of two adjacent names the one that begins at the position is meant.
        if (isNamed(node.kind) && contains(node.range(), offset)
            && contains(part.script.nameRange(id), offset)
            && (found == 0 || part.script.nameRange(id).start >= part.script.nameRange(found).start))
            found = id;
    }
    return found;
}

SymbolId symbolOf(const Model &model, NodeId node)
{
    switch (model.kind(node)) {
    case NodeKind::Name:
        return model.symbols.symbolAt(node);
    case NodeKind::Identifier:
        return declaredBy(model.symbols, model.parent(node));
    case NodeKind::New:
        return classNamed(model.symbols, model.tree[node].name);
    case NodeKind::Member:
        if (const auto owner = ownerOf(model, node))
            return model.symbols.declaredIn(model.symbols.symbol(owner).ownScope, model.tree[node].name);
        return 0;
    default:
        return 0;
    }
}

std::optional<NamedThing> namedAt(const FileModel &file, Offset offset)
{
    const auto *part = file.partAt(offset);
    const auto node = part ? nameNodeAt(*part, offset) : 0;
    if (node == 0)
        return std::nullopt;
    const auto &model = part->model;
    const auto symbol = symbolOf(model, node);
    const auto &known = model.symbols.symbol(symbol);
    NamedThing thing{part, part->script.nameRange(node), symbol, model.spelling(node), false, {}};
    if (symbol != 0) {
        const auto &scope = model.symbols.scope(known.scope);
        thing.isGlobal = known.scope == 0 || known.kind == SymbolKind::Implicit;
        if (known.scope != 0 && scope.kind == ScopeKind::Class)
            thing.ofClass = model.nameOf(scope.owner);
    } else if (model.kind(node) == NodeKind::Member) {
        thing.ofClass = model.spelling(otherClassOf(model, node));
    } else if (model.kind(node) == NodeKind::New) {
        thing.isGlobal = model.types.of(node).otherClass != NameId::None;
    } else {
        thing.isGlobal = model.kind(node) == NodeKind::Name && !model.isProvided(node);
    }
    return symbol != 0 || thing.isShared() ? std::optional(thing) : std::nullopt;
}

std::vector<Occurrence> occurrences(const FilePart &part, SymbolId symbol)
{
    const auto &symbols = part.model.symbols;
    const auto &target = symbols.symbol(symbol);
    Collector collector(part);
    for (auto id = symbols.scope(target.scope).firstSymbol; id != 0; id = symbols.symbol(id).nextInScope) {
        if (symbols.symbol(id).name == target.name)
            collector.addSymbol(id);
    }
    if (target.scope == 0)
        collector.addByName(target.name);
    else if (symbols.scope(target.scope).kind == ScopeKind::Class)
        collector.addMembers(symbols.scope(target.scope).owner, target.name);
    return collector.take();
}

std::vector<Occurrence> globalOccurrences(const FilePart &part, std::string_view name)
{
    const auto &symbols = part.model.symbols;
    Collector collector(part);
    collector.addUnbound(name);
    const auto id = part.script.names.find(name);
    for (SymbolId symbol = 1; id != NameId::None && symbol < symbols.symbolCount(); ++symbol) {
        const auto &known = symbols.symbol(symbol);
        if (known.name == id && (known.scope == 0 || known.kind == SymbolKind::Implicit))
            collector.addSymbol(symbol);
    }
    if (id != NameId::None)
        collector.addByName(id);
    return collector.take();
}

std::vector<Occurrence> sharedOccurrences(const FilePart &part, const NamedThing &thing)
{
    if (thing.ofClass.empty())
        return globalOccurrences(part, thing.name);
    const auto &symbols = part.model.symbols;
    const auto className = part.script.names.find(thing.ofClass);
    const auto name = part.script.names.find(thing.name);
    if (className == NameId::None || name == NameId::None)
        return {};
    if (const auto owner = classNamed(symbols, className)) {
        const auto member = symbols.declaredIn(symbols.symbol(owner).ownScope, name);
        return member != 0 ? occurrences(part, member) : std::vector<Occurrence>();
    }
    Collector collector(part);
    collector.addMembersOfOther(className, name);
    return collector.take();
}

std::vector<TextRange> uncertainUses(const FilePart &part, std::string_view member)
{
    const auto &model = part.model;
    const auto name = part.script.names.find(member);
    std::vector<TextRange> places;
    for (NodeId id = 1; name != NameId::None && id < model.tree.size(); ++id) {
        const auto &node = model.tree[id];
        if (node.kind != NodeKind::Member || node.name != name || ownerOf(model, id) != 0)
            continue;
        const auto type = model.types.of(model.tree.child(id, 0));
        if (type.id == TypeId::Unknown || type == Type{TypeId::Object, 0})
            places.push_back(part.script.nameRange(id));
    }
    return places;
}

} // namespace kevra::script
