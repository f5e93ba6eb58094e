// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/types.h"

#include "script/builtins.h"
#include "script/sorted_names.h"

#include <algorithm>
#include <optional>

namespace kevra::script {
namespace {

/// Longer chains of members and indexes are not followed.
constexpr unsigned maxLinks = 24;

constexpr Type value{TypeId::Value, 0};
constexpr Type unknown{};

[[nodiscard]] bool same(std::string_view a, std::string_view b)
{
    return !comesBefore(a, b) && !comesBefore(b, a);
}

[[nodiscard]] std::string_view withoutQuotes(std::string_view literal)
{
    return literal.size() < 2 ? std::string_view() : literal.substr(1, literal.size() - 2);
}

[[nodiscard]] Type elementOf(Type type)
{
    const auto *object = objectType(type.id);
    return object ? Type{object->element, 0} : unknown;
}

} // namespace

Types::Types(const ParsedScript &script, const Symbols &symbols, const Surroundings &surroundings)
    : m_script(script)
    , m_symbols(symbols)
    , m_surroundings(surroundings)
    , m_entries(symbols.symbolCount())
{
    for (const auto &object : surroundings.shared) {
        const Type type{object.type, 0, script.names.find(object.ofClass)};
        const auto [known, isNew] = m_shared.emplace(script.names.find(object.name), type);
        if (!isNew && known->second != type)
            known->second = unknown; // two files disagree
    }
}

std::string_view Types::spelling(NodeId id) const
{
    return m_script.names.spelling(m_script.tree[id].name);
}

Type Types::typeOf(NodeId expression, unsigned links) const
{
    if (expression == 0 || links > maxLinks)
        return unknown;
    const auto &tree = m_script.tree;
    switch (tree[expression].kind) {
    case NodeKind::Number:
    case NodeKind::String:
    case NodeKind::Date:
    case NodeKind::True:
    case NodeKind::False:
    case NodeKind::Null:
    case NodeKind::Empty:
    case NodeKind::Unary:
    case NodeKind::Binary:
        return value;
    case NodeKind::Parentheses:
        return typeOf(tree.child(expression, 0), links + 1);
    case NodeKind::New:
        return ofNew(tree[expression].name);
    case NodeKind::Name:
        return ofName(expression);
    case NodeKind::WithObject:
        return typeOf(m_symbols.withExpression(expression), links + 1);
    case NodeKind::Member:
        return ofMember(expression, links);
    case NodeKind::Apply:
        return ofApply(expression, links);
    default:
        return unknown;
    }
}

Type Types::ofNew(NameId className) const
{
    const auto symbol = m_symbols.declaredIn(0, className);
    if (symbol != 0 && m_symbols.symbol(symbol).kind == SymbolKind::Class)
        return m_symbols.symbol(symbol).redeclared ? Type{TypeId::Object, 0} : Type{TypeId::Object, symbol};
    if (symbol == 0 && same(m_script.names.spelling(className), "RegExp"))
        return {TypeId::RegExp, 0};
    return {TypeId::Object, 0, symbol == 0 ? className : NameId::None};
}

Type Types::ofName(NodeId name) const
{
    if (const auto symbol = m_symbols.symbolAt(name))
        return ofSymbol(symbol);
    const auto id = m_script.tree[name].name;
    if (const auto *function = m_symbols.builtins().function(id))
        return {function->result, 0};
    if (m_symbols.builtins().constant(id))
        return value;
    return ofProvided(spelling(name)).value_or(ofShared(id));
}

Type Types::ofShared(NameId name) const
{
    const auto found = m_shared.find(name);
    return found != m_shared.end() ? found->second : unknown;
}

std::vector<SharedObject> Types::sharedObjects() const
{
    std::vector<SharedObject> found;
    for (auto id = m_symbols.scope(0).firstSymbol; id != 0; id = m_symbols.symbol(id).nextInScope) {
        const auto &symbol = m_symbols.symbol(id);
        if (symbol.kind != SymbolKind::Variable && symbol.kind != SymbolKind::Implicit)
            continue;
        const auto type = ofSymbol(id);
        const auto ofClass = type.ownClass != 0 ? m_symbols.symbol(type.ownClass).name : type.otherClass;
        if (type.id > TypeId::Object || ofClass != NameId::None)
            found.push_back(
                {m_script.names.spelling(symbol.name), type.id, m_script.names.spelling(ofClass)});
    }
    return found;
}

std::optional<Type> Types::ofProvided(std::string_view name) const
{
    const auto host = m_surroundings.host;
    for (const auto &object : m_surroundings.objects) {
        if (same(object.name, name))
            return Type{typeOfProgId(object.progId), 0};
    }
    auto type = typeOfIntrinsic(name);
    if (type == TypeId::Unknown && host == Host::ServerPage)
        type = typeOfServerIntrinsic(name);
    if (type == TypeId::Unknown)
        return std::nullopt;
    // A page may have an element of that name.
    return Type{host == Host::Page && type == TypeId::WScript ? TypeId::Unknown : type, 0};
}

Type Types::ofMember(NodeId member, unsigned links) const
{
    const auto object = typeOf(m_script.tree.child(member, 0), links + 1);
    if (object.ownClass != 0) {
        const auto scope = m_symbols.symbol(object.ownClass).ownScope;
        const auto symbol = m_symbols.declaredIn(scope, m_script.tree[member].name);
        // A variable of the class can be changed from anywhere.
        return symbol != 0 && m_symbols.symbol(symbol).kind == SymbolKind::Function ? ofSymbol(symbol)
                                                                                    : unknown;
    }
    const auto *type = objectType(object.id);
    const auto *found = type ? memberOf(*type, spelling(member)) : nullptr;
    return found ? Type{found->result, 0} : unknown;
}

Type Types::ofApply(NodeId apply, unsigned links) const
{
    const auto &tree = m_script.tree;
    if (const auto progId = createdProgId(apply); !progId.empty()) {
        const auto type = typeOfProgId(progId);
        return {type == TypeId::Unknown ? TypeId::Object : type, 0};
    }
    if (createsObject(apply))
        return {TypeId::Object, 0};
    const auto callee = tree.child(apply, 0);
    const bool hasArguments = tree.child(apply, 1) != 0;
    const auto type = typeOf(callee, links + 1);
    if (tree[callee].kind == NodeKind::Name) {
        const auto symbol = m_symbols.symbolAt(callee);
        if (symbol == 0 && m_symbols.builtins().function(tree[callee].name))
            return type;
        if (m_symbols.symbol(symbol).kind == SymbolKind::Function)
            return type;
    }
    if (tree[callee].kind == NodeKind::Member) {
        const auto object = typeOf(tree.child(callee, 0), links + 1);
        const auto *owner = objectType(object.id);
        const auto *member = owner ? memberOf(*owner, spelling(callee)) : nullptr;
        if (object.ownClass != 0 || (member && member->parameters.most() > 0))
            return type;
    }
    return hasArguments ? elementOf(type) : type;
}

std::string_view Types::createCall(NodeId expression) const
{
    const auto &tree = m_script.tree;
    if (tree[expression].kind != NodeKind::Apply)
        return {};
    const auto callee = tree.child(expression, 0);
    const auto kind = tree[callee].kind;
    if (kind == NodeKind::Name && m_symbols.symbolAt(callee) == 0)
        return spelling(callee);
    if (kind != NodeKind::Member || tree[tree.child(callee, 0)].kind != NodeKind::Name)
        return {};
    const auto object = ofName(tree.child(callee, 0)).id;
    return object == TypeId::WScript || object == TypeId::Server ? spelling(callee) : std::string_view();
}

bool Types::createsObject(NodeId expression) const
{
    if (m_script.tree[expression].kind == NodeKind::New)
        return true;
    const auto call = createCall(expression);
    return same(call, "CreateObject") || same(call, "GetObject");
}

std::string_view Types::createdProgId(NodeId expression) const
{
    const auto &tree = m_script.tree;
    const auto call = createCall(expression);
    const bool creates = same(call, "CreateObject");
    if (!creates && !same(call, "GetObject"))
        return {};
    const auto argument = tree.child(expression, creates ? 1 : 2);
    if (argument != 0 && tree[argument].kind == NodeKind::String)
        return withoutQuotes(m_script.textOf(argument));
    const auto moniker = tree.child(expression, 1);
    if (!creates && moniker != 0) {
        // GetObject("winmgmts:..."); the moniker is often concatenated from parts.
        const auto first = tree[moniker].kind == NodeKind::Binary ? tree.child(moniker, 0) : moniker;
        const auto text = withoutQuotes(m_script.textOf(first));
        if (tree[first].kind == NodeKind::String && text.size() >= 8 && same(text.substr(0, 8), "winmgmts"))
            return "winmgmts";
    }
    return {};
}

bool Types::hasDefaultMember(Type type) const
{
    if (type.ownClass != 0) {
        const auto scope = m_symbols.symbol(type.ownClass).ownScope;
        for (auto id = m_symbols.scope(scope).firstSymbol; id != 0; id = m_symbols.symbol(id).nextInScope) {
            const auto &symbol = m_symbols.symbol(id);
            if (symbol.ownScope != 0 && m_script.tree[symbol.node].has(flag::Default))
                return true;
        }
        return false;
    }
    const auto *object = objectType(type.id);
    return object == nullptr || object->hasDefaultMember;
}

Type Types::ofSymbol(SymbolId symbol) const
{
    constexpr unsigned maxVariablesInARow = 100;
    auto &entry = m_entries[symbol];
    if (entry.state == State::NotLooked && m_symbols.symbol(symbol).kind != SymbolKind::Parameter
        && m_variablesInARow < maxVariablesInARow) {
        // Unknown while it is being inferred, in case its type depends on itself.
        entry.state = State::Looking;
        ++m_variablesInARow;
        entry.type = computed(symbol);
        --m_variablesInARow;
        entry.state = State::Known;
    }
    return entry.type;
}

Type Types::computed(SymbolId symbol) const
{
    const auto kind = m_symbols.symbol(symbol).kind;
    const bool holdsValues = kind == SymbolKind::Variable || kind == SymbolKind::Implicit
        || (kind == SymbolKind::Function && !m_symbols.symbol(symbol).redeclared);
    if (kind == SymbolKind::Constant)
        return value;
    if (!holdsValues)
        return unknown;
    std::optional<Type> found;
    bool isArgument = false;
    const auto add = [&](Type type) {
        if (!found)
            found = type;
        else if (*found != type)
            found = found->otherClass != type.otherClass && found->ownClass == type.ownClass
                    && found->id == type.id
                ? Type{type.id, 0}
                : unknown;
    };
    for (const auto &use : m_symbols.references(symbol)) {
        if (const auto type = assignedBy(use))
            add(*type);
        isArgument = isArgument || use.access == Access::Argument;
        if (found == unknown)
            return unknown;
    }
    // Another file may assign what this one only declares or clears.
    const auto &known = m_symbols.symbol(symbol);
    if (!found && (kind == SymbolKind::Implicit || (kind == SymbolKind::Variable && known.scope == 0)))
        return ofShared(known.name);
    // A method may store an object in a variable passed to it.
    return isArgument && found == value ? unknown : found.value_or(unknown);
}

/// The type that a use assigns to its variable; nothing if it assigns nothing.
std::optional<Type> Types::assignedBy(const Reference &use) const
{
    const auto &tree = m_script.tree;
    const auto source = tree.child(m_symbols.parent(use.node), 1);
    switch (use.access) {
    case Access::Set:
        return tree[source].kind != NodeKind::Nothing ? std::optional(typeOf(source, 0)) : std::nullopt;
    case Access::Write: {
        // Without Set the value of the default member is assigned.
        const auto type = typeOf(source, 0);
        return type.id == TypeId::Value ? type : unknown;
    }
    case Access::LoopEach:
        return elementOf(typeOf(source, 0));
    case Access::Loop:
    case Access::ReDim:
        return unknown;
    case Access::Argument:
        return mayBeChangedByCall(use) ? std::optional(unknown) : std::nullopt;
    default:
        return std::nullopt;
    }
}

/// Whether a procedure of the script assigns to the parameter that receives this argument.
bool Types::mayBeChangedByCall(const Reference &argument) const
{
    const auto &tree = m_script.tree;
    const auto call = m_symbols.parent(argument.node);
    const auto callee = tree.child(call, 0);
    if (tree[callee].kind == NodeKind::Member)
        return tree[tree.child(callee, 0)].kind == NodeKind::Name
            && ofName(tree.child(callee, 0)).ownClass != 0;
    const auto symbol = tree[callee].kind == NodeKind::Name ? m_symbols.symbolAt(callee) : 0;
    if (symbol == 0 || m_symbols.symbol(symbol).ownScope == 0)
        return false;
    if (m_symbols.symbol(symbol).redeclared)
        return true;
    const auto parameter = parameterFor(symbol, call, argument.node);
    return parameter == 0 || isWritten(parameter);
}

/// The parameter of a procedure that receives an argument; 0 if unknown.
SymbolId Types::parameterFor(SymbolId procedure, NodeId call, NodeId argument) const
{
    const auto &tree = m_script.tree;
    const auto &declared = m_symbols.symbol(procedure);
    auto parameter = tree.child(declared.node, 1);
    unsigned position = 0;
    for (const auto child : tree.children(call)) {
        if (position++ == 0)
            continue;
        if (child == argument)
            break;
        if (position > maxLinks)
            return 0;
        parameter = tree[parameter].nextSibling;
    }
    return tree[parameter].kind == NodeKind::Parameter
        ? m_symbols.declaredIn(declared.ownScope, tree[parameter].name)
        : 0;
}

bool Types::isWritten(SymbolId parameter) const
{
    if (m_script.tree[m_symbols.symbol(parameter).node].has(flag::ByVal))
        return false;
    auto &entry = m_entries[parameter];
    // The type of a parameter is never inferred; its entry records whether it is assigned.
    if (entry.state == State::NotLooked) {
        const auto uses = m_symbols.references(parameter);
        const bool written = std::ranges::any_of(uses, [](const Reference &use) {
            return writesWhole(use.access) || use.access == Access::Argument || use.access == Access::ReDim;
        });
        entry.state = written ? State::Known : State::Looking;
    }
    return entry.state == State::Known;
}

} // namespace kevra::script
