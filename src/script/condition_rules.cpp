// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/builtins.h"
#include "script/rule_tables.h"
#include "script/sorted_names.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace kevra::script {
namespace {

[[nodiscard]] bool isComparison(Operator op)
{
    return op >= Operator::Equal && op <= Operator::GreaterEqual;
}

[[nodiscard]] NodeId unwrapped(const Model &model, NodeId id)
{
    while (model.kind(id) == NodeKind::Parentheses)
        id = model.tree.child(id, 0);
    return id;
}

/// The argument of a built-in function called with a single one, or 0.
[[nodiscard]] NodeId argumentOf(const Model &model, NodeId call, std::string_view function)
{
    if (model.kind(call) != NodeKind::Apply)
        return 0;
    const auto *builtin = model.builtinAt(model.tree.child(call, 0));
    return builtin && builtin->name == function ? unwrapped(model, model.tree.child(call, 1)) : 0;
}

// Guards: what the left operand of And checks for the right operand, which VBScript evaluates in any case.

enum class Guard { None, IsObject, IsNumber, IsDate, IsArray, NotZero, InBounds, Exists };

struct Guarded {
    Guard guard = Guard::None;
    NodeId subject = 0;
    NodeId array = 0; ///< of InBounds
};

struct GuardFunction {
    std::string_view function;
    Guard guard;
};
constexpr std::array guardFunctions{
    GuardFunction{"IsObject", Guard::IsObject},
    GuardFunction{"IsNumeric", Guard::IsNumber},
    GuardFunction{"IsDate", Guard::IsDate},
    GuardFunction{"IsArray", Guard::IsArray},
};

[[nodiscard]] bool isZero(const Model &model, NodeId id)
{
    return model.kind(id) == NodeKind::Number && model.script.textOf(id) == "0";
}

/// `holds`: whether the left operand is true (And) or false (Or) when the right one matters.
[[nodiscard]] Guarded guardOfComparison(const Model &model, NodeId id, bool holds)
{
    const auto left = unwrapped(model, model.tree.child(id, 0));
    const auto right = unwrapped(model, model.tree.child(id, 1));
    const auto op = model.tree[id].op;
    if (model.tree.child(id, 2) != 0)
        return {};
    if (op == Operator::Is)
        return !holds && model.kind(right) == NodeKind::Nothing ? Guarded{Guard::IsObject, left, 0}
                                                                : Guarded{};
    const bool nonZero = holds ? op == Operator::NotEqual || op == Operator::Greater
                               : op == Operator::Equal || op == Operator::LessEqual;
    if (nonZero && isZero(model, right))
        return {Guard::NotZero, left, 0};
    const bool inBounds = holds ? op == Operator::LessEqual || op == Operator::Less
                                : op == Operator::Greater || op == Operator::GreaterEqual;
    const auto array = argumentOf(model, right, "UBound");
    return inBounds && array != 0 ? Guarded{Guard::InBounds, left, array} : Guarded{};
}

[[nodiscard]] Guarded guardOf(const Model &model, NodeId id, bool holds)
{
    id = unwrapped(model, id);
    while (model.kind(id) == NodeKind::Unary && model.tree[id].op == Operator::Not) {
        id = unwrapped(model, model.tree.child(id, 0));
        holds = !holds;
    }
    if (model.kind(id) == NodeKind::Binary)
        return guardOfComparison(model, id, holds);
    if (!holds)
        return {};
    for (const auto &row : guardFunctions) {
        if (const auto subject = argumentOf(model, id, row.function))
            return {row.guard, subject, 0};
    }
    const auto callee = model.kind(id) == NodeKind::Apply ? model.tree.child(id, 0) : 0;
    if (model.kind(callee) != NodeKind::Member)
        return {};
    const auto name = model.spelling(callee);
    const bool asks = !comesBefore(name, "FileExists") && !comesBefore("FileExists", name);
    const bool asksFolder = !comesBefore(name, "FolderExists") && !comesBefore("FolderExists", name);
    return asks || asksFolder ? Guarded{Guard::Exists, model.tree.child(id, 1), 0} : Guarded{};
}

[[nodiscard]] bool isOneOf(std::string_view name, std::initializer_list<std::string_view> names)
{
    return std::ranges::any_of(
        names, [&](std::string_view n) { return !comesBefore(name, n) && !comesBefore(n, name); });
}

/// Whether the node is a call of a function that takes only numbers (IsNumber) or dates (IsDate).
[[nodiscard]] bool converts(const Model &model, NodeId id, Guard guard)
{
    const auto *function
        = model.kind(id) == NodeKind::Apply ? model.builtinAt(model.tree.child(id, 0)) : nullptr;
    return function
        && (guard == Guard::IsDate
                ? isOneOf(function->name, {"CDate", "DateValue", "Year", "Month", "Day"})
                : isOneOf(function->name, {"CInt", "CLng", "CDbl", "CSng", "CByte", "CCur"}));
}

/// Whether evaluating the node fails when the guard does not hold.
[[nodiscard]] bool needs(const Model &model, NodeId id, const Guarded &guarded)
{
    const auto &tree = model.tree;
    const auto first = tree.child(id, 0);
    const auto second = tree.child(id, 1);
    const bool onSubject = first != 0 && model.sameText(first, guarded.subject);
    switch (guarded.guard) {
    case Guard::IsObject:
        return model.kind(id) == NodeKind::Member && onSubject;
    case Guard::IsNumber:
    case Guard::IsDate:
        return converts(model, id, guarded.guard) && second != 0
            && model.sameText(unwrapped(model, second), guarded.subject);
    case Guard::IsArray:
        return model.kind(id) == NodeKind::Apply && (onSubject || [&] {
            const auto array = argumentOf(model, id, "UBound");
            return array != 0 && model.sameText(array, guarded.subject);
        }());
    case Guard::NotZero: {
        const auto op = tree[id].op;
        return model.kind(id) == NodeKind::Binary
            && (op == Operator::Divide || op == Operator::IntegerDivide || op == Operator::Mod) && second != 0
            && model.sameText(unwrapped(model, second), guarded.subject);
    }
    case Guard::InBounds:
        return model.kind(id) == NodeKind::Apply && model.sameText(first, guarded.array) && second != 0
            && model.sameText(unwrapped(model, second), guarded.subject);
    case Guard::Exists:
        return model.kind(id) == NodeKind::Apply && model.kind(first) == NodeKind::Member
            && isOneOf(model.spelling(first), {"GetFile", "GetFolder", "OpenTextFile"}) && second != 0
            && model.sameText(second, guarded.subject);
    case Guard::None:
        break;
    }
    return false;
}

/// The first node at or below `id` that needs the guard, or 0.
[[nodiscard]] NodeId findNeed(const Model &model, NodeId id, const Guarded &guarded)
{
    if (needs(model, id, guarded))
        return id;
    for (const auto child : model.tree.children(id)) {
        if (const auto found = findNeed(model, child, guarded))
            return found;
    }
    return 0;
}

// The same condition twice.

/// Whether evaluating it again may give another value: it calls something that may have side effects.
[[nodiscard]] bool mayChange(const Model &model, NodeId id)
{
    const auto kind = model.kind(id);
    if (kind == NodeKind::Member) {
        const auto object = model.types.of(model.tree.child(id, 0));
        const auto *type = objectType(object.id);
        const auto *member = type ? memberOf(*type, model.spelling(id)) : nullptr;
        if (member == nullptr || member->kind == MemberKind::Method || object.id == TypeId::TextStream)
            return true;
    } else if (kind == NodeKind::Name) {
        const auto symbol = model.symbols.symbolAt(id);
        const auto *builtin = model.builtinAt(id);
        if (builtin
            && (builtin->result == TypeId::Unknown
                || isOneOf(builtin->name, {"Rnd", "InputBox", "MsgBox", "Timer", "Now", "Time", "Date"})))
            return true;
        if (symbol != 0 && model.symbols.symbol(symbol).ownScope != 0)
            return true;
        const auto above = model.parent(id);
        const bool called = model.kind(above) == NodeKind::Apply && model.tree[above].firstChild == id;
        if (called && symbol == 0 && builtin == nullptr)
            return true;
    }
    for (const auto child : model.tree.children(id)) {
        if (mayChange(model, child))
            return true;
    }
    return false;
}

[[nodiscard]] std::string normalised(std::string_view text)
{
    std::string out;
    bool inString = false;
    for (const char c : text) {
        inString = inString != (c == '"');
        if (inString || (c != ' ' && c != '\t'))
            out += !inString && c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    }
    return out;
}

class SeenTexts {
public:
    explicit SeenTexts(const Model &model)
        : m_model(model)
    {
    }

    void look(NodeId id, std::string_view what, FindingList &findings)
    {
        const auto [at, isNew] = m_seen.try_emplace(normalised(m_model.script.textOf(id)), id);
        if (isNew)
            return;
        const auto range = m_model.tree[at->second].range();
        findings
            .add(Rule::RepeatedCondition, m_model.tree[id].range(),
                "The " + std::string(what) + " " + m_model.quoted(id) + " was already asked for in line "
                    + std::to_string(m_model.lineOf(range.start)) + ", so this branch is never taken.")
            .related.push_back({range, "This comes first."});
    }

private:
    const Model &m_model;
    std::unordered_map<std::string, NodeId> m_seen;
};

[[nodiscard]] bool isFixedValue(const Model &model, NodeId id)
{
    const auto kind = model.kind(id);
    if (kind == NodeKind::Name) {
        const auto symbol = model.symbols.symbolAt(id);
        return symbol != 0 ? model.symbols.symbol(symbol).kind == SymbolKind::Constant
                           : model.symbols.builtins().constant(model.tree[id].name) != nullptr;
    }
    return kind == NodeKind::Number || kind == NodeKind::String || kind == NodeKind::Date;
}

} // namespace

void checkNullComparison(const Model &model, NodeId binary, FindingList &findings)
{
    const auto op = model.tree[binary].op;
    if (!isComparison(op))
        return;
    const auto left = model.tree.child(binary, 0);
    const auto right = model.tree.child(binary, 1);
    const bool plain = model.tree.child(binary, 2) == 0;
    const bool leftNull = model.kind(left) == NodeKind::Null;
    if (!leftNull && model.kind(right) != NodeKind::Null)
        return;
    const auto range = model.tree[binary].range();
    auto &finding = findings.add(Rule::NullComparison, range,
        "A comparison with Null gives Null, whatever " + model.quoted(leftNull ? right : left) + " is.");
    if (plain && (op == Operator::Equal || op == Operator::NotEqual)) {
        const auto text = std::string(op == Operator::NotEqual ? "Not " : "") + "IsNull("
            + std::string(model.script.textOf(leftNull ? right : left)) + ")";
        finding.fixes.push_back({"Use IsNull", {{range, text}}});
    }
}

void checkNoShortCircuit(const Model &model, NodeId binary, FindingList &findings)
{
    const auto op = model.tree[binary].op;
    if (op != Operator::And && op != Operator::Or)
        return;
    constexpr unsigned maxOperands = 12;
    unsigned position = 0;
    for (auto left = model.tree.child(binary, 0); left != 0 && ++position < maxOperands;
         left = model.tree[left].nextSibling) {
        const auto guarded = guardOf(model, left, op == Operator::And);
        if (guarded.guard == Guard::None)
            continue;
        for (auto right = model.tree[left].nextSibling; right != 0; right = model.tree[right].nextSibling) {
            const auto need = findNeed(model, right, guarded);
            if (need == 0)
                continue;
            findings
                .add(Rule::NoShortCircuit, model.tree[need].range(),
                    model.quoted(need) + " is computed even when " + model.quoted(left) + " is "
                        + (op == Operator::And ? "False" : "True") + ".")
                .related.push_back({model.tree[left].range(), "This does not keep it from being computed."});
            return;
        }
    }
}

void checkRepeatedCondition(const Model &model, NodeId ifStatement, FindingList &findings)
{
    const auto second = model.tree.child(ifStatement, 1);
    if (second == 0 || model.kind(second) != NodeKind::IfBranch)
        return;
    SeenTexts seen(model);
    for (const auto branch : model.tree.children(ifStatement)) {
        const auto condition = model.tree.child(branch, 0);
        if (model.kind(branch) == NodeKind::IfBranch && !mayChange(model, condition))
            seen.look(condition, "condition", findings);
    }
}

void checkRepeatedCase(const Model &model, NodeId select, FindingList &findings)
{
    SeenTexts seen(model);
    for (const auto branch : model.tree.children(select)) {
        if (model.kind(branch) != NodeKind::CaseBranch)
            continue;
        for (const auto value : model.tree.children(branch)) {
            if (isFixedValue(model, value))
                seen.look(value, "value", findings);
        }
    }
}

} // namespace kevra::script
