// SPDX-License-Identifier: GPL-3.0-or-later
// A client that sends valid messages in any order, some of them damaged as text or as values: every request
// is answered once, and texts can still be asked about. Two bytes choose a message and what happens to it.
// Says after each million, and at the end, how many messages that were.
#include "lsp/framing.h"
#include "lsp/session.h"
#include "page/document_findings.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

using namespace kevra::lsp;

namespace {

class NoFiles : public FileSystem {
public:
    std::optional<std::string> read(const std::string &) override { return "Sub Note(t)\r\nEnd Sub\r\n"; }
    std::uint64_t stamp(const std::string &path) override { return path.ends_with("lib.vbs") ? 1 : 0; }
    std::vector<std::string> scriptsBelow(const std::string &folder) override
    {
        return {folder + "/lib.vbs"};
    }
    std::vector<kevra::script::Finding> pageFindings(
        std::string_view text, kevra::script::FileKind kind, const std::string &path) override
    {
        return m_analysis.ofPage(text, {kind, path, {}});
    }

private:
    kevra::page::DocumentAnalysis m_analysis;
};

#define URI(name) R"("textDocument":{"uri":"file:///w/)" name R"("})"
#define REQUEST(method, params) R"({"id":1,"method":")" method R"(","params":{)" params R"(}})"
#define AT(line, character) R"("position":{"line":)" line R"(,"character":)" character R"(})"

constexpr auto messages = std::to_array<std::string_view>({
    REQUEST("initialize",
        R"("rootUri":"file:///w","capabilities":{"general":{"positionEncodings":["utf-8"]},)"
        R"("textDocument":{"publishDiagnostics":{"relatedInformation":true,"tagSupport":{}},)"
        R"("codeAction":{"codeActionLiteralSupport":{}}}})"),
    R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"file:///w/a.vbs","version":1,"text":)"
    R"("Option Explicit\nClass C\nPublic v\nSub S(a, b)\nMe.v = a\nEnd Sub\nEnd Class\nDim o, ä\n)"
    R"(Set o = New C\nWith o\n.S 1, \"😀\"\nEnd With\nö = Left(ä, 2)\n"}}})",
    R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"file:///w/b.wsf","version":1,"text":)"
    R"("<job id=\"x\"><script language=\"VBScript\" src=\"lib.vbs\"/><script language=\"VBScript\">\r\nNote 1\r\n)"
    R"(If x Then\r\n</script></job>"}}})",
    R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"file:///w/c.asp","text":)"
    R"("<% Dim a : For Each a In b %><p><%= a %></p><% Next %><script language=vbscript>Sub t\nx.y\nEnd Sub</script>"}}})",
    R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"file:///w/a.vbs","version":2},)"
    R"("contentChanges":[{"range":{"start":{"line":3,"character":4},"end":{"line":4,"character":2}},"text":"x\r\n'"}]}})",
    R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"file:///w/a.vbs"},)"
    R"("contentChanges":[{"text":"a = b("}]}})",
    R"({"method":"textDocument/didSave","params":{"textDocument":{"uri":"file:///w/c.asp"}}})",
    R"({"method":"textDocument/didClose","params":{"textDocument":{"uri":"file:///w/a.vbs"}}})",
    REQUEST("textDocument/definition", URI("a.vbs") "," AT("4", "3")),
    REQUEST("textDocument/references", URI("b.wsf") "," AT("1", "1")),
    REQUEST("textDocument/documentHighlight", URI("c.asp") "," AT("0", "9")),
    REQUEST("textDocument/prepareRename", URI("a.vbs") "," AT("7", "7")),
    REQUEST("textDocument/rename", R"("newName":"n",)" URI("a.vbs") "," AT("7", "5")),
    REQUEST("textDocument/rename", R"("newName":"m",)" URI("b.wsf") "," AT("1", "1")),
    REQUEST("textDocument/hover", URI("a.vbs") "," AT("12", "6")),
    REQUEST("textDocument/signatureHelp", URI("a.vbs") "," AT("12", "10")),
    REQUEST("textDocument/completion", URI("a.vbs") "," AT("10", "1")),
    REQUEST("textDocument/completion", URI("c.asp") "," AT("1", "2")),
    REQUEST("textDocument/documentSymbol", URI("b.wsf")),
    REQUEST("workspace/symbol", R"("query":"s")"),
    REQUEST("textDocument/diagnostic", URI("a.vbs")),
    REQUEST("textDocument/codeAction",
        URI("a.vbs") R"(,"context":{"diagnostics":[]},"range":{"start":{"line":0,"character":0},"end":{"line":99,"character":0}})"),
    REQUEST("textDocument/foldingRange", URI("a.vbs")),
    REQUEST("textDocument/selectionRange", URI("a.vbs") R"(,"positions":[{"line":4,"character":4}])"),
    REQUEST("textDocument/semanticTokens/full", URI("c.asp")),
    REQUEST("textDocument/formatting", URI("c.asp") R"(,"options":{"tabSize":4,"insertSpaces":false})"),
    REQUEST("textDocument/formatting", URI("a.vbs") R"(,"options":{"tabSize":2,"insertSpaces":true})"),
    REQUEST("textDocument/onTypeFormatting",
        R"("ch":"\n",)" URI("a.vbs") "," AT("5", "0") R"(,"options":{"tabSize":2,"insertSpaces":true})"),
    R"({"method":"$/cancelRequest","params":{"id":1}})",
    R"({"id":1,"method":"shutdown"})",
    R"({"method":"exit"})",
});
constexpr std::size_t openingMessages = 4; ///< after these, three texts are open

void require(bool holds)
{
    if (!holds)
        std::abort();
}

[[nodiscard]] bool isRequest(const std::string &content)
{
    const auto message = Json::parse(content, nullptr, false);
    return message.is_object() && message.contains("id") && message.contains("method")
        && (message["id"].is_number_integer() || message["id"].is_string()) && message["method"].is_string();
}

/// An answer to a request: its members are in the order of their names. Parsing all of it would take most of
/// the time.
[[nodiscard]] bool isAnswer(std::string_view text)
{
    return text.starts_with(R"({"id":)")
        || (text.starts_with(R"({"error":)") && text.find(R"(,"id":null,)") == text.npos);
}

/// The message with a byte changed, a piece taken out, or a piece put in twice.
[[nodiscard]] std::string damaged(std::string message, unsigned how)
{
    const auto place = how * 37 % message.size();
    const auto length = how % 29;
    switch (how % 4) {
    case 1:
        message[place] = static_cast<char>(how * 7);
        break;
    case 2:
        message.erase(place, length);
        break;
    case 3:
        message.insert(place, message.substr(place, length));
        break;
    default:
        break;
    }
    return message;
}

void collectValues(Json &value, std::vector<Json *> &values)
{
    for (auto &inner : value) {
        values.push_back(&inner);
        if (inner.is_structured())
            collectValues(inner, values);
    }
}

/// The message with one of its values replaced by another kind, an extreme one, or one of the others.
[[nodiscard]] std::string changed(std::string_view message, unsigned how)
{
    static const std::array<Json, 12> odd{Json(), true, -1, 2147483647, 18446744073709551615U, 0.5, "",
        "file:///w/b.wsf", "\xF0\x9F\x98\x80 If x Then\n<%", Json::array(), Json::object(),
        Json::array({Json()})};
    auto json = Json::parse(message);
    std::vector<Json *> values;
    collectValues(json, values);
    auto &value = *values[how % values.size()];
    const auto choice = how / values.size() % (odd.size() + 1);
    value = choice < odd.size() ? odd[choice] : Json(*values[how * 7 % values.size()]);
    return json.dump();
}

/// Most messages are whole, or nothing would ever be open.
[[nodiscard]] std::string variant(unsigned which, unsigned how)
{
    const auto message = messages[which % messages.size()];
    if (how < 0xA0)
        return std::string(message);
    return how < 0xD0 ? changed(message, which + 256 * (how - 0xA0)) : damaged(std::string(message), how);
}

class MessageCount {
public:
    ~MessageCount() { report(); }
    void add()
    {
        if (++m_count % 1'000'000 == 0)
            report();
    }

private:
    void report() const { std::fprintf(stderr, "%llu messages\n", m_count); }

    unsigned long long m_count = 0;
};
MessageCount messageCount;

class Conversation {
public:
    void receive(std::string_view bytes)
    {
        m_frames.add(bytes);
        while (const auto frame = m_frames.next()) {
            if (!frame->fault.empty()) {
                m_session.receiveFault(frame->fault);
                continue;
            }
            messageCount.add();
            m_requests += isRequest(frame->content);
            m_session.receive(frame->content);
        }
    }
    void process()
    {
        while (m_session.processNext()) { }
        m_session.processIdle();
        require(m_session.hasEnded() || m_answers == m_requests);
    }
    [[nodiscard]] bool hasEnded() const { return m_session.hasEnded(); }

private:
    NoFiles m_files;
    FrameReader m_frames;
    std::size_t m_answers = 0;
    std::size_t m_requests = 0;
    Session m_session{
        m_files, {{"x", "y"}}, [this](const std::string &text) { m_answers += isAnswer(text); }};
};

[[nodiscard]] std::unique_ptr<Conversation> opened()
{
    auto conversation = std::make_unique<Conversation>();
    for (std::size_t i = 0; i < openingMessages; ++i)
        conversation->receive(framed(messages[i]));
    return conversation;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    constexpr std::size_t most = 8000;
    auto conversation = size % 4 == 0 ? std::make_unique<Conversation>() : opened();
    for (std::size_t i = 0; i + 1 < std::min(size, most); i += 2) {
        const auto how = data[i + 1];
        const auto bytes = framed(variant(data[i], how));
        conversation->receive(how < 0xF8 ? bytes : damaged(bytes, how));
        if (how % 3 != 0)
            conversation->process();
        if (conversation->hasEnded())
            conversation = opened();
    }
    conversation->process();
    return 0;
}
