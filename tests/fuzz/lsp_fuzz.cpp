// SPDX-License-Identifier: GPL-3.0-or-later
// A client that sends valid messages in any order, some of them damaged: every request is answered once, and
// texts can still be asked about. Two bytes choose a message and what happens to it.
#include "lsp/framing.h"
#include "lsp/session.h"

#include <array>
#include <cstdlib>

using namespace kevra::lsp;

namespace {

class NoFiles : public DiskFiles {
public:
    std::optional<std::string> read(const std::string &) override { return "Sub Note(t)\r\nEnd Sub\r\n"; }
    std::uint64_t stamp(const std::string &path) override { return path.ends_with("lib.vbs") ? 1 : 0; }
    std::vector<std::string> scriptsBelow(const std::string &folder) override
    {
        return {folder + "/lib.vbs"};
    }
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
});

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    constexpr std::size_t most = 160;
    NoFiles files;
    std::size_t answers = 0;
    std::size_t requests = 0;
    Session session(files, {{"x", "y"}}, [&](const std::string &text) {
        const auto message = Json::parse(text);
        answers += message.contains("id") && !message["id"].is_null();
    });
    FrameReader frames;
    const auto receive = [&] {
        while (const auto frame = frames.next()) {
            if (!frame->fault.empty()) {
                session.receiveFault(frame->fault);
                continue;
            }
            requests += isRequest(frame->content);
            session.receive(frame->content);
        }
    };
    for (std::size_t i = 0; i + 1 < std::min(size, most); i += 2) {
        // Most messages are whole, or nothing would ever be open.
        const auto message = std::string(messages[data[i] % messages.size()]);
        auto bytes = framed(data[i + 1] < 0xA0 ? message : damaged(message, data[i + 1]));
        if (data[i + 1] >= 0xF8)
            bytes = damaged(bytes, data[i + 1]);
        frames.add(bytes);
        receive();
        if (data[i + 1] % 3 != 0) {
            while (session.processNext()) { }
            session.processIdle();
        }
    }
    while (session.processNext()) { }
    session.processIdle();
    require(answers == requests);
    return 0;
}
