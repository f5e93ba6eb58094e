// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/rename.h"

#include "script/builtins.h"
#include "script/fixes.h"
#include "script/lexer.h"

#include <algorithm>

namespace kevra::script {
namespace {

constexpr std::size_t longestName = 255;

[[nodiscard]] std::string lineText(std::string_view text, Offset offset)
{
    return std::to_string(LineIndex(text).lineAt(offset));
}

[[nodiscard]] bool sameNode(const Model &before, const Model &after, NodeId id)
{
    const auto &a = before.tree[id];
    const auto &b = after.tree[id];
    return a.kind == b.kind && a.op == b.op && a.flags == b.flags && a.firstChild == b.firstChild
        && a.nextSibling == b.nextSibling;
}

/// Compares declarations, since ids may be assigned in another order.
[[nodiscard]] NodeId declarationFor(const Model &model, NodeId id)
{
    const auto kind = model.kind(id);
    if (kind != NodeKind::Name && kind != NodeKind::New)
        return 0;
    return model.symbols.symbol(symbolOf(model, id)).node;
}

/// The first name that no longer refers to the same symbol, or 0.
[[nodiscard]] std::optional<NodeId> changedMeaning(const Model &before, const Model &after)
{
    if (before.tree.size() != after.tree.size())
        return before.tree.root();
    for (NodeId id = 1; id < before.tree.size(); ++id) {
        const bool name = before.kind(id) == NodeKind::Name;
        if (!sameNode(before, after, id) || declarationFor(before, id) != declarationFor(after, id)
            || (name && before.isProvided(id) != after.isProvided(id)))
            return id;
    }
    return std::nullopt;
}

[[nodiscard]] std::size_t redeclarations(const Symbols &symbols)
{
    std::size_t count = 0;
    for (SymbolId id = 1; id < symbols.symbolCount(); ++id)
        count += symbols.symbol(id).redeclared;
    return count;
}

[[nodiscard]] std::string clash(const FileModel &file, std::string_view changed, std::string_view newName)
{
    const FileModel after(changed, file.kind());
    const std::string taken = "'" + std::string(newName) + "' ";
    if (after.parts().size() != file.parts().size())
        return taken + "would change where the script ends.";
    for (std::size_t i = 0; i < file.parts().size(); ++i) {
        const auto &before = *file.parts()[i];
        const auto &then = *after.parts()[i];
        if (const auto node = changedMeaning(before.model, then.model))
            return taken + "already means something else: see line "
                + lineText(file.text(), before.script.tree[*node].start) + ".";
        if (redeclarations(before.model.symbols) != redeclarations(then.model.symbols))
            return taken + "is already declared there.";
    }
    return {};
}

} // namespace

std::string uncertainty(const FileModel &file, const FilePart &part, const NamedThing &thing)
{
    const auto uses = thing.ofClass.empty() ? std::vector<TextRange>() : uncertainUses(part, thing.name);
    if (uses.empty())
        return {};
    return "Line " + lineText(file.text(), uses.front().start) + " uses '." + std::string(thing.name)
        + "' of an object whose class is not certain.";
}

std::string whyNoName(std::string_view name)
{
    const std::string quoted = "'" + std::string(name) + "'";
    NameTable names;
    std::vector<TextRange> comments;
    const Piece whole{{0, static_cast<Offset>(name.size())}};
    const auto token = Lexer(name, {&whole, 1}, names, comments).next();
    if (token.kind != TokenKind::Name || token.unclosed || token.start != 0 || token.end != name.size()
        || name.size() > longestName)
        return quoted + " is not a name.";
    if (isReserved(token.keyword()))
        return quoted + " is a word of the language.";
    return builtinFunction(name) || builtinConstant(name) || typeOfIntrinsic(name) != TypeId::Unknown
        ? quoted + " is part of the language."
        : std::string();
}

Renaming renamedPlaces(const FileModel &file, const std::vector<Occurrence> &places, std::string_view newName)
{
    Renaming result;
    for (const auto &place : places)
        result.edits.push_back({place.range, std::string(newName)});
    result.refusal = whyNoName(newName);
    if (result.refusal.empty())
        result.refusal = clash(file, edited(file.text(), result.edits), newName);
    if (!result.refusal.empty())
        result.edits.clear();
    return result;
}

Renaming renamed(const FileModel &file, const NamedThing &thing, std::string_view newName)
{
    if (auto refusal = uncertainty(file, *thing.part, thing); !refusal.empty())
        return {{}, std::move(refusal)};
    return renamedPlaces(file,
        thing.symbol != 0 ? occurrences(*thing.part, thing.symbol) : sharedOccurrences(*thing.part, thing),
        newName);
}

} // namespace kevra::script
