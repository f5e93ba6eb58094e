// SPDX-License-Identifier: GPL-3.0-or-later
// What the server does with each request: parameters in, result out. Documents change elsewhere.
#pragma once

#include "lsp/protocol.h"
#include "script/describe.h"

#include <functional>
#include <span>
#include <string_view>

namespace kevra::lsp {

/// A ready-made piece of text that completion offers.
struct SnippetText {
    std::string_view name;
    std::string_view text;
};

struct Context {
    Workspace &workspace;
    const ClientAbilities &client;
    std::span<const SnippetText> snippets;
};

/// The document and the place that `params` name; the document is null where it is not known.
struct Place {
    const Document *document = nullptr;
    Offset offset = 0;
};
[[nodiscard]] Place placeOf(const Context &context, const Json &params);

using RequestHandler = Answer (*)(const Context &, const Json &params);

/// Null for methods the server does not know.
[[nodiscard]] RequestHandler handlerOf(std::string_view method);

/// The answer to "initialize".
[[nodiscard]] Json serverCapabilities(PositionUnit unit);

/// The diagnostics of a document as the protocol has them.
[[nodiscard]] Json diagnosticsOf(const Context &context, const Document &document);

// navigation.cpp
[[nodiscard]] Answer definition(const Context &context, const Json &params);
[[nodiscard]] Answer references(const Context &context, const Json &params);
[[nodiscard]] Answer documentHighlight(const Context &context, const Json &params);
[[nodiscard]] Answer prepareRename(const Context &context, const Json &params);
[[nodiscard]] Answer rename(const Context &context, const Json &params);

/// What stands for the name at the place, in another file that is loaded with this one.
[[nodiscard]] std::optional<script::Description> describedElsewhere(
    const Context &context, const Place &place);

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
