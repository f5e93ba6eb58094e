// SPDX-License-Identifier: GPL-3.0-or-later
#include "lsp/session.h"

#include <algorithm>
#include <array>

namespace kevra::lsp {
namespace {

[[nodiscard]] bool isId(const Json &id)
{
    return id.is_number_integer() || id.is_string();
}

[[nodiscard]] const Json &paramsOf(const Json &message)
{
    static const Json none = Json::object();
    const auto found = message.find("params");
    return found != message.end() ? *found : none;
}

[[nodiscard]] bool isRequest(const Json &message)
{
    return message.contains("method") && message.contains("id");
}

struct UnitName {
    std::string_view name;
    PositionUnit unit;
};
constexpr std::array unitNames{UnitName{"utf-8", PositionUnit::Utf8}, UnitName{"utf-16", PositionUnit::Utf16},
    UnitName{"utf-32", PositionUnit::Utf32}};

/// The client's first choice that is supported here.
[[nodiscard]] PositionUnit agreedUnit(const Json &params)
{
    for (const auto &offered : at(params, Json::json_pointer("/capabilities/general/positionEncodings"))) {
        for (const auto &known : unitNames) {
            if (offered == known.name)
                return known.unit;
        }
    }
    return PositionUnit::Utf16;
}

} // namespace

Session::Session(
    FileSystem &disk, std::vector<SnippetText> snippets, std::function<void(const std::string &)> send)
    : m_workspace(disk)
    , m_snippets(std::move(snippets))
    , m_send(std::move(send))
{
}

void Session::receiveFault(const std::string &why)
{
    respond(Json(), Failure{ErrorCode::ParseError, why});
}

void Session::receive(std::string_view content)
{
    auto message = Json::parse(content, nullptr, false);
    if (message.is_discarded())
        return receiveFault("The message is no JSON in UTF-8.");
    const bool sound = message.is_object() && (!message.contains("id") || isId(message["id"]))
        && (!message.contains("method") || message["method"].is_string());
    if (!sound)
        return respond(Json(), Failure{ErrorCode::InvalidRequest, "The message is no request."});
    if (!message.contains("method"))
        return; // a response; no request was sent
    if (message["method"] != "$/cancelRequest") {
        m_queue.push_back(std::move(message));
        return;
    }
    const auto &id = at(message, Json::json_pointer("/params/id"));
    const bool waits = std::ranges::any_of(
        m_queue, [&](const Json &waiting) { return isRequest(waiting) && waiting["id"] == id; });
    if (waits)
        m_cancelled.insert(id);
}

bool Session::processNext()
{
    if (m_queue.empty() || hasEnded())
        return false;
    const auto message = std::move(m_queue.front());
    m_queue.pop_front();
    m_workspace.recheckFiles();
    if (isRequest(message)) {
        request(message);
        return true;
    }
    try {
        notification(message["method"], paramsOf(message));
    } catch (const std::exception &) {
        // A notification has no response. One with invalid parameters changes nothing.
    }
    return true;
}

void Session::request(const Json &message)
{
    const auto &id = message["id"];
    if (m_cancelled.erase(id) > 0)
        return respond(id, Failure{ErrorCode::RequestCancelled, "The client has cancelled this."});
    try {
        respond(id, answerTo(message["method"], paramsOf(message)));
    } catch (const std::exception &error) {
        respond(id, Failure{ErrorCode::InvalidParams, error.what()});
    }
}

Answer Session::answerTo(const std::string &method, const Json &params)
{
    if (m_state == State::Fresh && method != "initialize")
        return Failure{ErrorCode::NotInitialized, "The first request is initialize."};
    if (m_state == State::ShutDown || (m_state == State::Running && method == "initialize"))
        return Failure{ErrorCode::InvalidRequest, "This is no time for " + method + "."};
    if (method == "initialize")
        return initialize(params);
    if (method == "shutdown") {
        m_state = State::ShutDown;
        return Json();
    }
    const auto handler = handlerOf(method);
    if (!handler)
        return Failure{ErrorCode::MethodNotFound, "There is no " + method + " here."};
    return handler(context(), params);
}

Answer Session::initialize(const Json &params)
{
    m_client = capabilitiesOf(at(params, Json::json_pointer("/capabilities")));
    const auto unit = agreedUnit(params);
    m_workspace.setPositionUnit(unit);
    const auto &folders = at(params, Json::json_pointer("/workspaceFolders"));
    for (const auto &folder : folders)
        m_workspace.addFolder(folder.at("uri"));
    const auto &root = at(params, Json::json_pointer("/rootUri"));
    if (folders.empty() && root.is_string())
        m_workspace.addFolder(root);
    m_state = State::Running;
    return serverCapabilities(unit);
}

void Session::notification(const std::string &method, const Json &params)
{
    struct Handler {
        std::string_view method;
        void (Session::*handle)(const Json &);
    };
    static constexpr std::array handlers{
        Handler{"textDocument/didOpen", &Session::didOpen},
        Handler{"textDocument/didChange", &Session::didChange},
        Handler{"textDocument/didClose", &Session::didClose},
        Handler{"textDocument/didSave", &Session::didSave},
        Handler{"workspace/didChangeWorkspaceFolders", &Session::didChangeFolders},
    };
    if (method == "exit") {
        m_orderly = m_state == State::ShutDown;
        m_state = State::Ended;
        return;
    }
    const auto handler = std::ranges::find(handlers, method, &Handler::method);
    if (m_state == State::Running && handler != handlers.end())
        (this->*handler->handle)(params);
}

void Session::didOpen(const Json &params)
{
    const auto &item = params.at("textDocument");
    auto &document
        = m_workspace.open(item.at("uri"), item.value("languageId", std::string()), item.at("text"));
    document.version = item.value("version", std::int64_t{0});
    document.diagnosticsDue = true;
}

void Session::didChange(const Json &params)
{
    auto *document = m_workspace.find(uriOf(params));
    if (!document)
        return;
    for (const auto &change : params.at("contentChanges")) {
        const auto &text = change.at("text").get_ref<const std::string &>();
        if (change.contains("range") && !change["range"].is_null())
            document->replace(rangeOf(document->text(), change["range"]), text);
        else
            document->replaceAll(text);
        document->diagnosticsDue = true;
    }
    if (const auto &version = at(params, Json::json_pointer("/textDocument/version"));
        version.is_number_integer())
        document->version = version.get<std::int64_t>();
}

void Session::didClose(const Json &params)
{
    const auto uri = uriOf(params);
    if (!m_workspace.find(uri))
        return;
    m_workspace.close(uri);
    if (!m_client.pullsDiagnostics)
        notify("textDocument/publishDiagnostics", {{"uri", uri}, {"diagnostics", Json::array()}});
}

/// What is saved may be what a page links to.
void Session::didSave(const Json &)
{
    for (auto &entry : m_workspace.documents()) {
        entry.second.forgetFindings();
        entry.second.diagnosticsDue = true;
    }
}

void Session::didChangeFolders(const Json &params)
{
    for (const auto &folder : params.at("event").at("removed"))
        m_workspace.removeFolder(folder.at("uri"));
    for (const auto &folder : params.at("event").at("added"))
        m_workspace.addFolder(folder.at("uri"));
}

void Session::processIdle()
{
    for (auto &entry : m_workspace.documents()) {
        if (entry.second.diagnosticsDue && !m_client.pullsDiagnostics)
            publish(entry.second);
        entry.second.diagnosticsDue = false;
    }
}

void Session::publish(WorkspaceFile &document)
{
    Json params{{"uri", document.uri()}, {"diagnostics", diagnosticsOf(context(), document)}};
    if (document.version)
        params["version"] = *document.version;
    notify("textDocument/publishDiagnostics", std::move(params));
}

void Session::respond(const Json &id, const Answer &answer)
{
    Json message{{"jsonrpc", "2.0"}, {"id", id}};
    if (const auto *failure = std::get_if<Failure>(&answer))
        message["error"] = {{"code", static_cast<int>(failure->code)}, {"message", failure->message}};
    else
        message["result"] = std::get<Json>(answer);
    m_send(message.dump(-1, ' ', false, Json::error_handler_t::replace));
}

void Session::notify(const char *method, Json params)
{
    const Json message{{"jsonrpc", "2.0"}, {"method", method}, {"params", std::move(params)}};
    m_send(message.dump(-1, ' ', false, Json::error_handler_t::replace));
}

} // namespace kevra::lsp
