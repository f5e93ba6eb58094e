// SPDX-License-Identifier: GPL-3.0-or-later
#include "lsp/features.h"
#include "script/fixes.h"

#include <algorithm>

namespace kevra::lsp {
namespace {

using script::Finding;
using script::Rule;

[[nodiscard]] int severity(script::Level level)
{
    switch (level) {
    case script::Level::Error:
        return 1;
    case script::Level::Warning:
        return 2;
    case script::Level::Hint:
        break;
    }
    return 4;
}

[[nodiscard]] Json tagsOf(Rule rule)
{
    constexpr int unnecessary = 1;
    constexpr int deprecated = 2;
    switch (rule) {
    case Rule::UnusedDeclaration:
    case Rule::NeverRead:
    case Rule::UnreachableCode:
        return {unnecessary};
    case Rule::NeedsVbscript:
        return {deprecated};
    default:
        return Json::array();
    }
}

[[nodiscard]] Json diagnosticOf(const Context &context, const WorkspaceFile &document, const Finding &finding)
{
    Json out{{"range", toJson(document.text(), finding.range)}, {"severity", severity(finding.level())},
        {"code", script::code(finding.rule)}, {"source", "kevra"}, {"message", finding.what}};
    if (auto tags = tagsOf(finding.rule); context.client.diagnosticTags && !tags.empty())
        out["tags"] = std::move(tags);
    for (const auto &related : finding.related) {
        if (context.client.relatedInformation)
            out["relatedInformation"].push_back(
                {{"location", locationOf(document, related.range)}, {"message", related.what}});
    }
    return out;
}

[[nodiscard]] bool touches(TextRange a, TextRange b)
{
    return a.start <= b.end && b.start <= a.end;
}

[[nodiscard]] bool wants(const Json &params, std::string_view kind)
{
    const auto &only = at(params, Json::json_pointer("/context/only"));
    return !only.is_array() || std::ranges::any_of(only, [&](const Json &wanted) {
        // "source" includes "source.fixAll".
        return wanted.is_string()
            && (std::string(kind) + '.').starts_with(wanted.get_ref<const std::string &>() + '.');
    });
}

[[nodiscard]] Json editOf(
    const Context &context, const WorkspaceFile &document, const std::vector<script::TextEdit> &edits)
{
    EditCollector collector(context.client);
    collector.add(document, edits);
    return collector.take();
}

} // namespace

Json diagnosticsOf(const Context &context, const WorkspaceFile &document)
{
    Json out = Json::array();
    for (const auto &finding : context.workspace.findings(document))
        out.push_back(diagnosticOf(context, document, finding));
    return out;
}

Answer pulledDiagnostics(const Context &context, const Json &params)
{
    const auto *document = context.workspace.load(uriOf(params));
    if (!document)
        return Json{{"kind", "full"}, {"items", Json::array()}};
    auto items = diagnosticsOf(context, *document);
    const auto id = std::to_string(std::hash<Json>()(items));
    if (at(params, Json::json_pointer("/previousResultId")) == id)
        return Json{{"kind", "unchanged"}, {"resultId", id}};
    return Json{{"kind", "full"}, {"resultId", id}, {"items", std::move(items)}};
}

Answer codeActions(const Context &context, const Json &params)
{
    const auto *document = context.workspace.load(uriOf(params));
    if (!document || !context.client.literalCodeActions)
        return Json::array();
    const auto range = rangeOf(document->text(), params.at("range"));
    Json out = Json::array();
    const auto &findings = context.workspace.findings(*document);
    for (const auto &finding : findings) {
        if (!touches(finding.range, range) || !wants(params, "quickfix"))
            continue;
        for (const auto &fix : finding.fixes)
            out.push_back(
                {{"title", fix.title}, {"kind", "quickfix"}, {"isPreferred", &fix == &finding.fixes.front()},
                    {"diagnostics", Json::array({diagnosticOf(context, *document, finding)})},
                    {"edit", editOf(context, *document, fix.edits)}});
    }
    if (auto all = firstFixes(findings); !all.empty() && wants(params, "source.fixAll"))
        out.push_back({{"title", "Carry out all fixes"}, {"kind", "source.fixAll"},
            {"edit", editOf(context, *document, all)}});
    return out;
}

} // namespace kevra::lsp
