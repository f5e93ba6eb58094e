// SPDX-License-Identifier: GPL-3.0-or-later
// The handlers of requests: parameters in, result out. They do not change documents.
#pragma once

#include "lsp/protocol.h"
#include "script/describe.h"

#include <functional>
#include <span>
#include <string_view>

namespace kevra::lsp {

/// A snippet that completion offers.
struct SnippetText {
    std::string_view name;
    std::string_view text;
};

struct Context {
    Workspace &workspace;
    const ClientCapabilities &client;
    std::span<const SnippetText> snippets;
};

/// The document and the position in `params`; the document is null if it is unknown.
struct Place {
    const WorkspaceFile *document = nullptr;
    Offset offset = 0;
};
[[nodiscard]] Place placeOf(const Context &context, const Json &params);

using RequestHandler = Answer (*)(const Context &, const Json &params);

/// Null for unknown methods.
[[nodiscard]] RequestHandler handlerOf(std::string_view method);

/// The response to "initialize".
[[nodiscard]] Json serverCapabilities(PositionUnit unit);

/// The diagnostics of a document in the protocol's form.
[[nodiscard]] Json diagnosticsOf(const Context &context, const WorkspaceFile &document);

// navigation.cpp
[[nodiscard]] Answer definition(const Context &context, const Json &params);
[[nodiscard]] Answer references(const Context &context, const Json &params);
[[nodiscard]] Answer documentHighlight(const Context &context, const Json &params);
[[nodiscard]] Answer prepareRename(const Context &context, const Json &params);
[[nodiscard]] Answer rename(const Context &context, const Json &params);

/// The declaration of the name at the position in another file that is loaded with this one. `model` is one
/// of the document's text.
[[nodiscard]] std::optional<script::Description> describedElsewhere(
    const Context &context, const Place &place, const script::FileModel &model);

// symbols.cpp
[[nodiscard]] Answer documentSymbols(const Context &context, const Json &params);
[[nodiscard]] Answer workspaceSymbols(const Context &context, const Json &params);

// diagnostics.cpp
[[nodiscard]] Answer pulledDiagnostics(const Context &context, const Json &params);
[[nodiscard]] Answer codeActions(const Context &context, const Json &params);

// assistance.cpp
[[nodiscard]] Answer hover(const Context &context, const Json &params);
[[nodiscard]] Answer signatureHelp(const Context &context, const Json &params);
[[nodiscard]] Answer completion(const Context &context, const Json &params);

// structure.cpp
[[nodiscard]] Answer foldingRanges(const Context &context, const Json &params);
[[nodiscard]] Answer selectionRanges(const Context &context, const Json &params);
[[nodiscard]] Answer semanticTokens(const Context &context, const Json &params);
[[nodiscard]] Answer semanticTokensOfRange(const Context &context, const Json &params);
[[nodiscard]] Answer formatting(const Context &context, const Json &params);
[[nodiscard]] Answer rangeFormatting(const Context &context, const Json &params);
[[nodiscard]] Answer onTypeFormatting(const Context &context, const Json &params);
[[nodiscard]] Json semanticTokensLegend();

} // namespace kevra::lsp
