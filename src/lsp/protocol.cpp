// SPDX-License-Identifier: GPL-3.0-or-later
#include "lsp/protocol.h"

#include <algorithm>
#include <stdexcept>

namespace kevra::lsp {
namespace {

[[nodiscard]] Offset wholeNumber(const Json &json)
{
    constexpr std::int64_t largest = 0x7FFFFFFF;
    if (json.is_number_unsigned())
        return static_cast<Offset>(std::min<std::uint64_t>(json.get<std::uint64_t>(), largest));
    if (!json.is_number_integer())
        throw std::invalid_argument("A position is made of whole numbers.");
    return static_cast<Offset>(std::clamp<std::int64_t>(json.get<std::int64_t>(), 0, largest));
}

[[nodiscard]] bool isTrue(const Json &json, const char *path)
{
    const auto &value = at(json, Json::json_pointer(path));
    return value.is_boolean() && value.get<bool>();
}

} // namespace

const Json &at(const Json &json, const Json::json_pointer &path)
{
    static const Json null;
    return json.contains(path) ? json.at(path) : null;
}

ClientCapabilities capabilitiesOf(const Json &capabilities)
{
    ClientCapabilities client;
    const auto has = [&](const char *path) { return !at(capabilities, Json::json_pointer(path)).is_null(); };
    client.pullsDiagnostics = has("/textDocument/diagnostic");
    client.relatedInformation = isTrue(capabilities, "/textDocument/publishDiagnostics/relatedInformation");
    client.diagnosticTags = has("/textDocument/publishDiagnostics/tagSupport");
    client.documentChanges = isTrue(capabilities, "/workspace/workspaceEdit/documentChanges");
    client.snippets = isTrue(capabilities, "/textDocument/completion/completionItem/snippetSupport");
    client.hierarchicalSymbols
        = isTrue(capabilities, "/textDocument/documentSymbol/hierarchicalDocumentSymbolSupport");
    client.literalCodeActions = has("/textDocument/codeAction/codeActionLiteralSupport");
    return client;
}

Position positionOf(const Json &json)
{
    return {wholeNumber(json.at("line")), wholeNumber(json.at("character"))};
}

TextRange rangeOf(const TextDocument &text, const Json &json)
{
    const auto start = text.offsetAt(positionOf(json.at("start")));
    const auto end = text.offsetAt(positionOf(json.at("end")));
    return {std::min(start, end), std::max(start, end)};
}

const std::string &uriOf(const Json &params)
{
    return params.at("textDocument").at("uri").get_ref<const std::string &>();
}

Json toJson(Position position)
{
    return {{"line", position.line}, {"character", position.character}};
}

Json toJson(const TextDocument &text, TextRange range)
{
    const auto start = text.positionAt(range.start);
    return {{"start", toJson(start)}, {"end", toJson(text.positionAt(range.end))}};
}

Json locationOf(const WorkspaceFile &document, TextRange range)
{
    return {{"uri", document.uri()}, {"range", toJson(document.text(), range)}};
}

Json toJson(const TextDocument &text, const std::vector<script::TextEdit> &edits)
{
    Json out = Json::array();
    for (const auto &edit : edits)
        out.push_back({{"range", toJson(text, edit.range)}, {"newText", edit.text}});
    return out;
}

void EditCollector::add(const WorkspaceFile &document, const std::vector<script::TextEdit> &edits)
{
    auto json = toJson(document.text(), edits);
    if (!m_versioned) {
        m_edit["changes"][document.uri()] = std::move(json);
        return;
    }
    const Json version = document.version ? Json(*document.version) : Json();
    m_edit["documentChanges"].push_back(
        {{"textDocument", {{"uri", document.uri()}, {"version", version}}}, {"edits", std::move(json)}});
}

} // namespace kevra::lsp
