// SPDX-License-Identifier: GPL-3.0-or-later
#include "lsp/features.h"
#include "script/references.h"
#include "script/rename.h"

#include <algorithm>

namespace kevra::lsp {
namespace {

using script::Occurrence;
using script::Use;

struct Found {
    const WorkspaceFile *document = nullptr;
    std::vector<Occurrence> places;
};

/// Every file that can refer to the symbol, its own first.
[[nodiscard]] std::vector<Found> everywhere(
    const Context &context, const WorkspaceFile &document, const script::NamedThing &thing)
{
    if (!thing.isShared())
        return {{&document, occurrences(*thing.part, thing.symbol)}};
    const auto parts = context.workspace.sharing(document, *thing.part);
    if (parts.size() == 1 && thing.symbol != 0)
        return {{&document, occurrences(*thing.part, thing.symbol)}};
    std::vector<Found> found;
    for (const auto &shared : parts) {
        auto places = sharedOccurrences(*shared.part, thing);
        const auto known = std::ranges::find(found, shared.document, &Found::document);
        if (known == found.end()) {
            found.push_back({shared.document, std::move(places)});
            continue;
        }
        for (const auto &place : places) {
            const bool there = std::ranges::any_of(
                known->places, [&](const Occurrence &o) { return o.range == place.range; });
            if (!there)
                known->places.push_back(place);
        }
        std::ranges::sort(known->places, {}, [](const Occurrence &o) { return o.range.start; });
    }
    return found;
}

struct NamedSymbol {
    const WorkspaceFile *document = nullptr;
    std::optional<script::NamedThing> thing;
};

[[nodiscard]] NamedSymbol symbolAtRequest(const Context &context, const Json &params)
{
    const auto place = placeOf(context, params);
    return {place.document, place.document ? namedAt(place.document->model(), place.offset) : std::nullopt};
}

/// The file named by a src= or #include at the position.
[[nodiscard]] Json includedAt(const Context &context, const Json &params)
{
    const auto place = placeOf(context, params);
    if (!place.document)
        return {};
    const auto *file = context.workspace.includedAt(*place.document, place.offset);
    return file ? locationOf(*file, {}) : Json();
}

[[nodiscard]] bool isDeclared(const std::vector<Found> &found)
{
    return std::ranges::any_of(found, [](const Found &file) {
        return std::ranges::any_of(
            file.places, [](const Occurrence &o) { return o.use == Use::Declaration; });
    });
}

/// Why one of several files does not allow the new name.
[[nodiscard]] std::string mixedClash(const std::vector<Found> &found, const Context &context,
    const WorkspaceFile &document, const script::NamedThing &thing, const std::string &newName)
{
    if (found.size() < 2 || script::folded(newName) == script::folded(thing.name))
        return {};
    for (const auto &shared : context.workspace.sharing(document, *thing.part)) {
        if (thing.isGlobal && !globalOccurrences(*shared.part, newName).empty())
            return "'" + newName + "' is already used in " + shared.document->uri() + ".";
        if (const auto why = uncertainty(shared.document->model(), *shared.part, thing); !why.empty())
            return shared.document->uri() + ": " + why;
    }
    return {};
}

} // namespace

Answer definition(const Context &context, const Json &params)
{
    const auto [document, thing] = symbolAtRequest(context, params);
    if (!thing)
        return includedAt(context, params);
    Json declarations = Json::array();
    Json firstWrites = Json::array();
    for (const auto &file : everywhere(context, *document, *thing)) {
        for (const auto &place : file.places) {
            if (place.use == Use::Declaration)
                declarations.push_back(locationOf(*file.document, place.range));
            else if (place.use == Use::Write && firstWrites.empty())
                firstWrites.push_back(locationOf(*file.document, place.range));
        }
    }
    // An undeclared variable counts as declared where it is first assigned.
    return declarations.empty() ? firstWrites : declarations;
}

std::optional<script::Description> describedElsewhere(
    const Context &context, const Place &place, const script::FileModel &model)
{
    const auto thing = namedAt(model, place.offset);
    if (!thing || thing->symbol != 0)
        return std::nullopt;
    for (const auto &file : everywhere(context, *place.document, *thing)) {
        const auto declared = std::ranges::find(file.places, Use::Declaration, &Occurrence::use);
        if (declared == file.places.end())
            continue;
        auto found = describe(file.document->model(), declared->range.start);
        if (found)
            found->range = thing->place;
        return found;
    }
    return std::nullopt;
}

Answer references(const Context &context, const Json &params)
{
    const auto [document, thing] = symbolAtRequest(context, params);
    if (!thing)
        return Json();
    const auto &wanted = at(params, Json::json_pointer("/context/includeDeclaration"));
    const bool declarations = !wanted.is_boolean() || wanted.get<bool>();
    Json out = Json::array();
    for (const auto &file : everywhere(context, *document, *thing)) {
        for (const auto &place : file.places) {
            if (declarations || place.use != Use::Declaration)
                out.push_back(locationOf(*file.document, place.range));
        }
    }
    return out;
}

Answer documentHighlight(const Context &context, const Json &params)
{
    constexpr int read = 2;
    constexpr int write = 3;
    const auto [document, thing] = symbolAtRequest(context, params);
    if (!thing)
        return Json();
    Json out = Json::array();
    for (const auto &place : thing->symbol != 0 ? occurrences(*thing->part, thing->symbol)
                                                : sharedOccurrences(*thing->part, *thing))
        out.push_back({{"range", toJson(document->text(), place.range)},
            {"kind", place.use == Use::Read ? read : write}});
    return out;
}

Answer prepareRename(const Context &context, const Json &params)
{
    const auto [document, thing] = symbolAtRequest(context, params);
    if (!thing || (thing->symbol == 0 && !isDeclared(everywhere(context, *document, *thing))))
        return Json();
    return Json{{"range", toJson(document->text(), thing->place)}, {"placeholder", thing->name}};
}

Answer rename(const Context &context, const Json &params)
{
    const auto [document, thing] = symbolAtRequest(context, params);
    const auto &newName = params.at("newName").get_ref<const std::string &>();
    if (!thing)
        return Failure{ErrorCode::RequestFailed, "Here is no name that can be changed."};
    const auto found = everywhere(context, *document, *thing);
    if (thing->symbol == 0 && !isDeclared(found))
        return Failure{ErrorCode::RequestFailed,
            "'" + std::string(thing->name) + "' is declared in no file that is known here."};
    auto refusal = mixedClash(found, context, *document, *thing, newName);
    EditCollector edits(context.client);
    for (const auto &file : found) {
        if (file.places.empty() || !refusal.empty())
            continue;
        const auto renaming = found.size() == 1 ? renamed(file.document->model(), *thing, newName)
                                                : renamedPlaces(file.document->model(), file.places, newName);
        refusal = renaming.refusal;
        edits.add(*file.document, renaming.edits);
    }
    if (!refusal.empty())
        return Failure{ErrorCode::RequestFailed, std::move(refusal)};
    return edits.take();
}

} // namespace kevra::lsp
