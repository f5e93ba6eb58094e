// SPDX-License-Identifier: GPL-3.0-or-later
#include "lsp/features.h"
#include "script/names.h"
#include "script/outline.h"

namespace kevra::lsp {
namespace {

using script::OutlineItem;
using script::OutlineKind;

[[nodiscard]] int symbolKind(OutlineKind kind)
{
    switch (kind) {
    case OutlineKind::Job:
        return 4; // Package
    case OutlineKind::Class:
        return 5;
    case OutlineKind::Method:
        return 6;
    case OutlineKind::Property:
        return 7;
    case OutlineKind::Sub:
    case OutlineKind::Function:
        return 12;
    case OutlineKind::Variable:
        return 13;
    case OutlineKind::Constant:
        break;
    }
    return 14;
}

/// The protocol refuses empty names, which unfinished declarations have.
[[nodiscard]] std::string shownName(const OutlineItem &item)
{
    return item.name.empty() ? "?" : item.name;
}

[[nodiscard]] Json treeOf(const TextDocument &text, const std::vector<OutlineItem> &items)
{
    Json out = Json::array();
    for (const auto &item : items)
        out.push_back({{"name", shownName(item)}, {"detail", item.detail}, {"kind", symbolKind(item.kind)},
            {"range", toJson(text, item.range)}, {"selectionRange", toJson(text, item.nameRange)},
            {"children", treeOf(text, item.children)}});
    return out;
}

/// Whether the name contains the letters of the query in order.
[[nodiscard]] bool matches(const std::string &name, const std::string &query)
{
    std::size_t at = 0;
    for (const char c : name) {
        if (at < query.size() && c == query[at])
            ++at;
    }
    return at == query.size();
}

void appendFlat(Json &out, const WorkspaceFile &document, const std::vector<OutlineItem> &items,
    const std::string &query, const std::string &container)
{
    for (const auto &item : items) {
        if (matches(script::folded(item.name), query)) {
            Json entry{{"name", shownName(item)}, {"kind", symbolKind(item.kind)},
                {"location", locationOf(document, item.nameRange)}};
            if (!container.empty())
                entry["containerName"] = container;
            out.push_back(std::move(entry));
        }
        appendFlat(out, document, item.children, query, item.name);
    }
}

} // namespace

Answer documentSymbols(const Context &context, const Json &params)
{
    const auto *document = context.workspace.load(uriOf(params));
    if (!document)
        return Json();
    const auto items = outline(document->model());
    if (context.client.hierarchicalSymbols)
        return treeOf(document->text(), items);
    Json out = Json::array();
    appendFlat(out, *document, items, {}, {});
    return out;
}

Answer workspaceSymbols(const Context &context, const Json &params)
{
    constexpr std::size_t most = 1000;
    const auto query = script::folded(params.at("query").get_ref<const std::string &>());
    Json out = Json::array();
    for (const auto *document : context.workspace.all()) {
        if (out.size() < most)
            appendFlat(out, *document, outline(document->model()), query, {});
    }
    return out;
}

} // namespace kevra::lsp
