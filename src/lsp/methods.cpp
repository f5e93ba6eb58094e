// SPDX-License-Identifier: GPL-3.0-or-later
#include "lsp/features.h"

#include <algorithm>
#include <array>

namespace kevra::lsp {
namespace {

struct Method {
    std::string_view name;
    RequestHandler handler;
};
constexpr std::array methods{
    Method{"textDocument/definition", definition},
    Method{"textDocument/references", references},
    Method{"textDocument/documentHighlight", documentHighlight},
    Method{"textDocument/prepareRename", prepareRename},
    Method{"textDocument/rename", rename},
    Method{"textDocument/documentSymbol", documentSymbols},
    Method{"workspace/symbol", workspaceSymbols},
    Method{"textDocument/diagnostic", pulledDiagnostics},
    Method{"textDocument/codeAction", codeActions},
    Method{"textDocument/hover", hover},
    Method{"textDocument/signatureHelp", signatureHelp},
    Method{"textDocument/completion", completion},
    Method{"textDocument/foldingRange", foldingRanges},
    Method{"textDocument/selectionRange", selectionRanges},
    Method{"textDocument/semanticTokens/full", semanticTokens},
    Method{"textDocument/semanticTokens/range", semanticTokensOfRange},
    Method{"textDocument/formatting", formatting},
    Method{"textDocument/rangeFormatting", rangeFormatting},
    Method{"textDocument/onTypeFormatting", onTypeFormatting},
};

[[nodiscard]] const char *nameOf(PositionUnit unit)
{
    return unit == PositionUnit::Utf8 ? "utf-8" : unit == PositionUnit::Utf16 ? "utf-16" : "utf-32";
}

} // namespace

RequestHandler handlerOf(std::string_view name)
{
    const auto found = std::ranges::find(methods, name, &Method::name);
    return found != methods.end() ? found->handler : nullptr;
}

Place placeOf(const Context &context, const Json &params)
{
    const auto *document = context.workspace.load(uriOf(params));
    const auto position = positionOf(params.at("position"));
    return {document, document ? document->text().offsetAt(position) : 0};
}

Json serverCapabilities(PositionUnit unit)
{
    constexpr int incremental = 2;
    const Json capabilities{
        {"positionEncoding", nameOf(unit)},
        {"textDocumentSync", {{"openClose", true}, {"change", incremental}, {"save", true}}},
        {"definitionProvider", true},
        {"referencesProvider", true},
        {"documentHighlightProvider", true},
        {"renameProvider", {{"prepareProvider", true}}},
        {"documentSymbolProvider", true},
        {"workspaceSymbolProvider", true},
        {"codeActionProvider", {{"codeActionKinds", {"quickfix", "source.fixAll"}}}},
        {"hoverProvider", true},
        {"signatureHelpProvider", {{"triggerCharacters", {"(", ",", " "}}}},
        {"completionProvider", {{"triggerCharacters", {".", "\""}}}},
        {"foldingRangeProvider", true},
        {"selectionRangeProvider", true},
        {"semanticTokensProvider", {{"legend", semanticTokensLegend()}, {"full", true}, {"range", true}}},
        {"documentFormattingProvider", true},
        {"documentRangeFormattingProvider", true},
        {"documentOnTypeFormattingProvider", {{"firstTriggerCharacter", "\n"}}},
        {"diagnosticProvider",
            {{"identifier", "kevra"}, {"interFileDependencies", false}, {"workspaceDiagnostics", false}}},
        {"workspace", {{"workspaceFolders", {{"supported", true}, {"changeNotifications", true}}}}},
    };
    return {{"capabilities", capabilities}, {"serverInfo", {{"name", "kevra-cli"}}}};
}

} // namespace kevra::lsp
