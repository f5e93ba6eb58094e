// SPDX-License-Identifier: GPL-3.0-or-later
// One session with a client: orders, cancels and answers its messages. It does no input or output itself:
// messages are passed in, and sent through a function.
#pragma once

#include "lsp/features.h"

#include <deque>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kevra::lsp {

class Session {
public:
    /// `send` gets each message as JSON in UTF-8. The arguments must outlive the session.
    Session(
        FileSystem &disk, std::vector<SnippetText> snippets, std::function<void(const std::string &)> send);

    /// Queues a message. An invalid one is answered at once, and a cancellation takes effect at once.
    void receive(std::string_view content);
    /// For bytes that were not a message.
    void receiveFault(const std::string &why);
    /// Processes the next message; false if there is none.
    bool processNext();
    /// Call when no message is queued: sends the diagnostics of the texts that have changed.
    void processIdle();

    /// The client has requested the exit.
    [[nodiscard]] bool hasEnded() const { return m_state == State::Ended; }
    /// 0 after a shutdown request, 1 otherwise.
    [[nodiscard]] int exitCode() const { return m_orderly ? 0 : 1; }

private:
    enum class State { Fresh, Running, ShutDown, Ended };

    void request(const Json &message);
    void notification(const std::string &method, const Json &params);
    [[nodiscard]] Answer answerTo(const std::string &method, const Json &params);
    [[nodiscard]] Answer initialize(const Json &params);
    void didOpen(const Json &params);
    void didChange(const Json &params);
    void didClose(const Json &params);
    void didSave(const Json &params);
    void didChangeFolders(const Json &params);
    void publish(WorkspaceFile &document);
    void respond(const Json &id, const Answer &answer);
    void notify(const char *method, Json params);
    [[nodiscard]] Context context() { return {m_workspace, m_client, m_snippets}; }

    Workspace m_workspace;
    std::vector<SnippetText> m_snippets;
    std::function<void(const std::string &)> m_send;
    ClientCapabilities m_client;
    State m_state = State::Fresh;
    bool m_orderly = false;
    std::deque<Json> m_queue;
    std::set<Json> m_cancelled; ///< ids of requests in the queue
};

} // namespace kevra::lsp
