// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/structure.h"
#include "lsp/features.h"
#include "script/classified.h"
#include "script/formatting.h"

#include <algorithm>
#include <array>

namespace kevra::lsp {
namespace {

using script::WordClass;

[[nodiscard]] script::FormatOptions optionsOf(const Json &params)
{
    constexpr unsigned widest = 16;
    const auto &options = params.at("options");
    script::FormatOptions out;
    const auto &size = options.at("tabSize");
    if (size.is_number_unsigned())
        out.tabSize = std::clamp(size.get<unsigned>(), 1U, widest);
    out.insertSpaces = options.at("insertSpaces").get<bool>();
    return out;
}

// In the order of WordClass.
constexpr std::array<const char *, 12> tokenTypes{"keyword", "variable", "variable", "parameter", "function",
    "method", "property", "class", "string", "number", "operator", "comment"};
constexpr std::array<const char *, 3> tokenModifiers{"declaration", "readonly", "defaultLibrary"};

[[nodiscard]] unsigned modifiersOf(const script::ClassifiedWord &word)
{
    return (word.declares ? 1U : 0U) | (word.what == WordClass::Constant ? 2U : 0U)
        | (word.provided ? 4U : 0U);
}

[[nodiscard]] Json encoded(const TextDocument &text, const std::vector<script::ClassifiedWord> &words)
{
    Json data = Json::array();
    Position last;
    for (const auto &word : words) {
        const auto start = text.positionAt(word.range.start);
        const auto end = text.positionAt(word.range.end);
        if (end.line != start.line)
            continue;
        const bool sameLine = start.line == last.line;
        data.push_back(start.line - last.line);
        data.push_back(sameLine ? start.character - last.character : start.character);
        data.push_back(end.character - start.character);
        data.push_back(static_cast<int>(word.what));
        data.push_back(modifiersOf(word));
        last = start;
    }
    return {{"data", std::move(data)}};
}

[[nodiscard]] bool overlaps(TextRange a, TextRange b)
{
    return a.start < b.end && b.start < a.end;
}

} // namespace

Answer foldingRanges(const Context &context, const Json &params)
{
    const auto *document = context.workspace.load(uriOf(params));
    Json out = Json::array();
    for (const auto &fold : document ? folds(document->model()) : std::vector<script::Fold>()) {
        Json range{{"startLine", fold.first}, {"endLine", fold.last}};
        if (fold.isComment)
            range["kind"] = "comment";
        out.push_back(std::move(range));
    }
    return out;
}

Answer selectionRanges(const Context &context, const Json &params)
{
    const auto *document = context.workspace.load(uriOf(params));
    if (!document)
        return Json();
    Json out = Json::array();
    for (const auto &position : params.at("positions")) {
        const auto ranges = widening(document->model(), document->text().offsetAt(positionOf(position)));
        Json chain;
        for (auto range = ranges.rbegin(); range != ranges.rend(); ++range) {
            Json inner{{"range", toJson(document->text(), *range)}};
            if (!chain.is_null())
                inner["parent"] = std::move(chain);
            chain = std::move(inner);
        }
        out.push_back(std::move(chain));
    }
    return out;
}

Answer semanticTokens(const Context &context, const Json &params)
{
    const auto *document = context.workspace.load(uriOf(params));
    return document ? encoded(document->text(), classified(document->model())) : Json();
}

Answer semanticTokensOfRange(const Context &context, const Json &params)
{
    const auto *document = context.workspace.load(uriOf(params));
    if (!document)
        return Json();
    const auto range = rangeOf(document->text(), params.at("range"));
    auto words = classified(document->model());
    std::erase_if(words, [&](const script::ClassifiedWord &word) { return !overlaps(word.range, range); });
    return encoded(document->text(), words);
}

Answer formatting(const Context &context, const Json &params)
{
    const auto *document = context.workspace.load(uriOf(params));
    return document ? toJson(document->text(), formatted(document->model(), optionsOf(params))) : Json();
}

Answer rangeFormatting(const Context &context, const Json &params)
{
    const auto *document = context.workspace.load(uriOf(params));
    if (!document)
        return Json();
    const auto range = rangeOf(document->text(), params.at("range"));
    auto edits = formatted(document->model(), optionsOf(params));
    std::erase_if(edits, [&](const script::TextEdit &edit) {
        return edit.range.start < range.start || edit.range.end > range.end;
    });
    return toJson(document->text(), edits);
}

Answer onTypeFormatting(const Context &context, const Json &params)
{
    const auto place = placeOf(context, params);
    if (!place.document || params.at("ch") != "\n")
        return Json();
    return toJson(
        place.document->text(), indentedAfterBreak(place.document->model(), place.offset, optionsOf(params)));
}

Json semanticTokensLegend()
{
    return {{"tokenTypes", tokenTypes}, {"tokenModifiers", tokenModifiers}};
}

} // namespace kevra::lsp
