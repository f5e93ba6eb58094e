// SPDX-License-Identifier: GPL-3.0-or-later
// One conversation with a client: which messages are answered, when, and with what. Nothing here waits or
// reads; messages are handed in and handed out.
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
    /// `send` gets each message as JSON in UTF-8. All named must outlive the session.
    Session(
        DiskFiles &disk, std::vector<SnippetText> snippets, std::function<void(const std::string &)> send);

    /// Puts the message in the queue. What is none is answered at once, and a cancellation counts at once.
    void receive(std::string_view content);
    /// A stretch of bytes that was no message.
    void receiveFault(const std::string &why);
    /// Answers the next message; false where there is none.
    bool processNext();
    /// Sends what is due once no message waits: the diagnostics of the texts that have changed.
    void processIdle();

    /// The client has asked for the end.
    [[nodiscard]] bool hasEnded() const { return m_state == State::Ended; }
    /// 0 after an orderly end, 1 otherwise.
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
    void publish(Document &document);
    void respond(const Json &id, const Answer &answer);
    void notify(const char *method, Json params);
    [[nodiscard]] Context context() { return {m_workspace, m_client, m_snippets}; }

    Workspace m_workspace;
    std::vector<SnippetText> m_snippets;
    std::function<void(const std::string &)> m_send;
    ClientAbilities m_client;
    State m_state = State::Fresh;
    bool m_orderly = false;
    std::deque<Json> m_queue;
    std::set<Json> m_cancelled; ///< ids of requests in the queue
};

} // namespace kevra::lsp
