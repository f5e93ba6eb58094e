// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/nearness.h"
#include "script/rule_tables.h"

namespace kevra::script {
namespace {

[[nodiscard]] std::string_view typeName(const Model &model, Type type)
{
    if (type.ownClass != 0)
        return model.nameOf(type.ownClass);
    const auto *object = objectType(type.id);
    return object ? object->name : std::string_view("object");
}

[[nodiscard]] bool isKnownObject(Type type)
{
    return type.ownClass != 0 || objectType(type.id) != nullptr;
}

[[nodiscard]] NodeId withoutParentheses(const Model &model, NodeId id)
{
    while (model.kind(id) == NodeKind::Parentheses)
        id = model.tree.child(id, 0);
    return id;
}

[[nodiscard]] std::string whyObject(const Model &model, NodeId source)
{
    if (model.kind(source) == NodeKind::Nothing)
        return "Nothing is an object";
    const auto type = model.types.of(source);
    return model.quoted(source) + " is an object"
        + (isKnownObject(type) ? ", " + std::string(typeName(model, type)) : "");
}

[[nodiscard]] bool needsSet(const Model &model, NodeId source)
{
    if (model.kind(source) == NodeKind::Nothing)
        return true;
    const auto type = model.types.of(source);
    if (model.types.createsObject(source))
        return type.ownClass == 0 || !model.types.hasDefaultMember(type);
    return isKnownObject(type) && !model.types.hasDefaultMember(type);
}

} // namespace

void checkMissingSet(const Model &model, NodeId assignment, FindingList &findings)
{
    const auto target = model.tree.child(assignment, 0);
    const auto source = model.tree.child(assignment, 1);
    if (source == 0 || model.kind(target) != NodeKind::Name || !needsSet(model, source))
        return;
    const auto start = model.tree[assignment].range().start;
    findings
        .add(Rule::MissingSet, model.tree[assignment].range(),
            "Set is missing: " + whyObject(model, source) + ", and an assignment without Set takes a value.")
        .fixes.push_back({"Insert Set", {{{start, start}, "Set "}}});
}

void checkSetWithValue(const Model &model, NodeId assignment, FindingList &findings)
{
    const auto target = model.tree.child(assignment, 0);
    const auto source = withoutParentheses(model, model.tree.child(assignment, 1));
    if (source == 0)
        return;
    const auto type = model.types.of(source).id;
    if (type != TypeId::Value && type != TypeId::ArrayOfValues)
        return;
    const TextRange set{model.tree[assignment].range().start, model.tree[target].range().start};
    findings
        .add(Rule::SetWithValue, model.tree[assignment].range(),
            "Set assigns objects, and " + model.quoted(source) + " is none.")
        .fixes.push_back({"Remove Set", {{set, ""}}});
}

void checkUnknownMember(const Model &model, NodeId member, FindingList &findings)
{
    const auto object = model.tree.child(member, 0);
    const auto type = model.types.of(object);
    const auto name = model.spelling(member);
    std::vector<std::string_view> known;
    if (type.ownClass != 0) {
        const auto &scope = model.symbols.scope(model.symbols.symbol(type.ownClass).ownScope);
        for (auto id = scope.firstSymbol; id != 0; id = model.symbols.symbol(id).nextInScope) {
            if (model.symbols.symbol(id).name == model.tree[member].name)
                return;
            known.push_back(model.nameOf(id));
        }
    } else {
        const auto *described = objectType(type.id);
        if (described == nullptr || !described->isComplete() || memberOf(*described, name) != nullptr)
            return;
        for (const auto &row : described->members)
            known.push_back(row.name);
    }
    const auto range = model.script.nameRange(member);
    auto &finding = findings.add(Rule::UnknownMember, range,
        "A " + std::string(typeName(model, type)) + " object has no member " + Model::quoted(name) + ".");
    if (const auto near = nearest(name, known); !near.empty())
        finding.fixes.push_back({"Change to " + std::string(near), {{range, std::string(near)}}});
}

} // namespace kevra::script
