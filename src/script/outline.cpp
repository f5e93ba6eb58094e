// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/outline.h"

#include <algorithm>

namespace kevra::script {
namespace {

[[nodiscard]] OutlineKind kindOf(SymbolKind kind, bool inClass)
{
    switch (kind) {
    case SymbolKind::Constant:
        return OutlineKind::Constant;
    case SymbolKind::Sub:
        return inClass ? OutlineKind::Method : OutlineKind::Sub;
    case SymbolKind::Function:
        return inClass ? OutlineKind::Method : OutlineKind::Function;
    case SymbolKind::Property:
        return OutlineKind::Property;
    case SymbolKind::Class:
        return OutlineKind::Class;
    default:
        return OutlineKind::Variable;
    }
}

[[nodiscard]] std::vector<OutlineItem> declaredIn(const FilePart &part, ScopeId scope)
{
    const auto &model = part.model;
    std::vector<OutlineItem> items;
    for (auto id = model.symbols.scope(scope).firstSymbol; id != 0;
         id = model.symbols.symbol(id).nextInScope) {
        const auto &symbol = model.symbols.symbol(id);
        if (symbol.kind == SymbolKind::Implicit)
            continue;
        OutlineItem item{kindOf(symbol.kind, scope != 0), std::string(model.spelling(symbol.name)), {},
            model.tree[symbol.node].range(), model.declarationRange(id), {}};
        if (isProcedure(model.kind(symbol.node)))
            item.detail = parameterList(part.script, symbol.node);
        if (symbol.kind == SymbolKind::Class)
            item.children = declaredIn(part, symbol.ownScope);
        items.push_back(std::move(item));
    }
    std::ranges::stable_sort(items, {}, [](const OutlineItem &item) { return item.nameRange.start; });
    return items;
}

/// A job with its declarations. Pieces shared with an earlier job are listed there only.
[[nodiscard]] OutlineItem jobItem(const FilePart &part, std::vector<OutlineItem> items)
{
    const auto &pieces = part.island.pieces;
    const auto first = pieces.front().range;
    return {OutlineKind::Job, std::string(part.island.name), {}, {first.start, pieces.back().range.end},
        {first.start, first.start}, std::move(items)};
}

} // namespace

std::string parameterList(const ParsedScript &script, NodeId procedure)
{
    std::string list;
    for (const auto child : script.tree.children(procedure)) {
        if (script.tree[child].kind == NodeKind::Parameter)
            (list += list.empty() ? "" : ", ") += script.textOf(child);
    }
    return '(' + list + ')';
}

std::vector<OutlineItem> outline(const FileModel &file)
{
    std::vector<OutlineItem> all;
    for (const auto &part : file.parts()) {
        auto items = declaredIn(*part, 0);
        if (file.parts().size() > 1 && !part->island.name.empty() && !part->island.pieces.empty())
            all.push_back(jobItem(*part, std::move(items)));
        else
            std::move(items.begin(), items.end(), std::back_inserter(all));
    }
    std::ranges::stable_sort(all, {}, [](const OutlineItem &item) { return item.range.start; });
    return all;
}

} // namespace kevra::script
