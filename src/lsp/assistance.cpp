// SPDX-License-Identifier: GPL-3.0-or-later
#include "lsp/features.h"
#include "script/completion.h"
#include "script/describe.h"

#include <algorithm>

namespace kevra::lsp {
namespace {

using script::CompletionKind;

[[nodiscard]] Json markdown(const std::string &signature, const std::string &text)
{
    return {{"kind", "markdown"},
        {"value", "```vbscript\n" + signature + "\n```" + (text.empty() ? "" : "\n\n" + text)}};
}

[[nodiscard]] int itemKind(CompletionKind kind)
{
    switch (kind) {
    case CompletionKind::Method:
        return 2;
    case CompletionKind::Function:
        return 3;
    case CompletionKind::Variable:
        return 6;
    case CompletionKind::Class:
        return 7;
    case CompletionKind::Object:
        return 9; // Module
    case CompletionKind::Property:
        return 10;
    case CompletionKind::Keyword:
        return 14;
    case CompletionKind::Constant:
        break;
    }
    return 21;
}

/// The word is replaced as a whole, so that the client need not guess where it begins.
[[nodiscard]] Json replacing(const Json &range, std::string_view text)
{
    return {{"range", range}, {"newText", text}};
}

constexpr int snippetKind = 15;

void appendSnippets(const Context &context, const Json &range, Json &items)
{
    for (const auto &snippet : context.snippets) {
        // The client chooses the line ends.
        std::string text(snippet.text);
        // Neovim's built-in completion, for example, puts several lines into one.
        if (!context.client.snippets && text.find('\n') != text.npos)
            continue;
        std::erase(text, '\r');
        items.push_back({{"label", snippet.name}, {"kind", snippetKind}, {"detail", text},
            {"sortText", "~" + std::string(snippet.name)}, {"textEdit", replacing(range, text)}});
    }
}

using Objects = std::vector<script::SharedObject>;

/// What the global variables of included files hold.
[[nodiscard]] Objects sharedObjects(const Context &context, const Place &place)
{
    Objects objects;
    if (const auto *part = place.document->model().partAt(place.offset)) {
        for (const auto &shared : context.workspace.includedParts(*place.document, *part))
            std::ranges::move(shared.part->model.types.sharedObjects(), std::back_inserter(objects));
    }
    return objects;
}

/// What other files declare, or a member of an object that they hold.
[[nodiscard]] std::optional<script::Description> describedByOthers(
    const Context &context, const Place &place, const Objects &objects)
{
    const auto &model = place.document->model();
    auto found = describedElsewhere(context, place, model);
    if (found || objects.empty())
        return found;
    const script::FileModel knowing(model.text(), model.kind(), objects);
    found = describe(knowing, place.offset);
    return found ? found : describedElsewhere(context, place, knowing);
}

} // namespace

Answer hover(const Context &context, const Json &params)
{
    const auto place = placeOf(context, params);
    if (!place.document)
        return Json();
    auto found = describe(place.document->model(), place.offset);
    if (!found)
        found = describedByOthers(context, place, sharedObjects(context, place));
    if (!found)
        return Json();
    return Json{{"contents", markdown(found->signature, found->text)},
        {"range", toJson(place.document->text(), found->range)}};
}

Answer signatureHelp(const Context &context, const Json &params)
{
    const auto place = placeOf(context, params);
    if (!place.document)
        return Json();
    const auto objects = sharedObjects(context, place);
    const auto call = callHelp(place.document->model(), place.offset, objects, [&](Offset nameEnd) {
        return describedByOthers(context, {place.document, nameEnd}, objects);
    });
    if (!call)
        return Json();
    Json parameters = Json::array();
    for (const auto &parameter : call->parameters)
        // As text: offsets would have to be in UTF-16 whatever unit was negotiated.
        parameters.push_back({{"label",
            call->signature.substr(
                static_cast<std::size_t>(parameter.start), static_cast<std::size_t>(parameter.length()))}});
    return Json{{"signatures",
                    Json::array({{{"label", call->signature}, {"documentation", call->text},
                        {"parameters", std::move(parameters)}}})},
        {"activeSignature", 0}, {"activeParameter", call->active}};
}

Answer completion(const Context &context, const Json &params)
{
    const auto place = placeOf(context, params);
    Json items = Json::array();
    if (!place.document)
        return items;
    auto found = completions(place.document->model(), place.offset, sharedObjects(context, place));
    const auto *part = place.document->model().partAt(place.offset);
    if (part && found.others != script::Completions::Others::Nothing) {
        for (const auto &shared : context.workspace.includedParts(*place.document, *part))
            addOthers(found, *shared.part);
    }
    const auto range = toJson(place.document->text(), found.word);
    for (const auto &item : found.items)
        items.push_back({{"label", item.name}, {"kind", itemKind(item.kind)}, {"detail", item.detail},
            {"documentation", item.text}, {"textEdit", replacing(range, item.name)}});
    if (found.startsStatement)
        appendSnippets(context, range, items);
    return items;
}

} // namespace kevra::lsp
