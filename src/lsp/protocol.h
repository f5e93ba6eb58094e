// SPDX-License-Identifier: GPL-3.0-or-later
// Conversions between the analysis and the protocol's JSON.
#pragma once

#include "lsp/workspace.h"
#include "script/finding.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <variant>

namespace kevra::lsp {

using Json = nlohmann::json;

enum class ErrorCode {
    ParseError = -32700,
    InvalidRequest = -32600,
    MethodNotFound = -32601,
    InvalidParams = -32602,
    NotInitialized = -32002,
    RequestCancelled = -32800,
    RequestFailed = -32803,
};

struct Failure {
    ErrorCode code{};
    std::string message;
};

/// The outcome of a request.
using Answer = std::variant<Json, Failure>;

/// The capabilities that the client announced.
struct ClientCapabilities {
    bool pullsDiagnostics = false;
    bool relatedInformation = false;
    bool diagnosticTags = false;
    bool documentChanges = false;
    bool snippets = false;
    bool hierarchicalSymbols = false;
    bool literalCodeActions = false;
};
[[nodiscard]] ClientCapabilities capabilitiesOf(const Json &capabilities);

/// A nested value, or null if any part of the path is missing.
[[nodiscard]] const Json &at(const Json &json, const Json::json_pointer &path);

/// These throw std::exception if the JSON has another form.
[[nodiscard]] Position positionOf(const Json &json);
[[nodiscard]] TextRange rangeOf(const TextDocument &text, const Json &json);
[[nodiscard]] const std::string &uriOf(const Json &params); ///< of params.textDocument

[[nodiscard]] Json toJson(Position position);
[[nodiscard]] Json toJson(const TextDocument &text, TextRange range);
[[nodiscard]] Json locationOf(const WorkspaceFile &document, TextRange range);
[[nodiscard]] Json toJson(const TextDocument &text, const std::vector<script::TextEdit> &edits);

/// Collects the edits of several files as a WorkspaceEdit.
class EditCollector {
public:
    explicit EditCollector(const ClientCapabilities &client)
        : m_versioned(client.documentChanges)
    {
    }
    void add(const WorkspaceFile &document, const std::vector<script::TextEdit> &edits);
    [[nodiscard]] Json take() { return std::move(m_edit); }

private:
    bool m_versioned;
    Json m_edit = Json::object();
};

} // namespace kevra::lsp
