// SPDX-License-Identifier: GPL-3.0-or-later
#include "lsp/session.h"

#include <algorithm>

using namespace kevra::lsp;

namespace {

class MemoryFiles : public FileSystem {
public:
    std::optional<std::string> read(const std::string &path) override { return files.at(path); }
    std::uint64_t stamp(const std::string &path) override { return files.contains(path) ? 1 : 0; }
    std::vector<std::string> scriptsBelow(const std::string &folder) override
    {
        std::vector<std::string> paths;
        for (const auto &file : files) {
            if (file.first.starts_with(folder))
                paths.push_back(file.first);
        }
        return paths;
    }
    std::vector<kevra::script::Finding> pageFindings(
        std::string_view, kevra::script::FileKind kind, const std::string &path) override
    {
        if (kind != kevra::script::FileKind::Page || files.contains(path))
            return {};
        return {{kevra::script::Rule::MissingFile, {1, 2}, "There is no such file.", {}, {}}};
    }
    std::map<std::string, std::string> files;
};

const std::string page = "file:///w/a.vbs";

/// A client that has opened "/w/a.vbs".
class Client {
public:
    Client() { request("initialize", {{"capabilities", capabilities}, {"rootUri", "file:///w"}}); }

    Json request(const std::string &method, const Json &params)
    {
        const auto id = ++m_lastId;
        post({{"jsonrpc", "2.0"}, {"id", id}, {"method", method}, {"params", params}});
        run();
        const auto answer
            = std::ranges::find_if(received, [&](const Json &m) { return m.value("id", Json()) == id; });
        return answer->contains("error") ? (*answer)["error"]["message"] : (*answer)["result"];
    }
    void notify(const std::string &method, const Json &params)
    {
        post({{"jsonrpc", "2.0"}, {"method", method}, {"params", params}});
        run();
    }
    void post(const Json &message) { session.receive(message.dump()); }
    void run()
    {
        while (session.processNext()) { }
        session.processIdle();
    }

    /// Opens a text with one place marked by a bar.
    void open(std::string text, const std::string &uri = page)
    {
        const auto bar = text.find('|');
        if (bar != text.npos)
            text.erase(bar, 1);
        const auto before = text.substr(0, std::min(bar, text.size()));
        const auto line = std::ranges::count(before, '\n');
        m_place = {{"textDocument", {{"uri", uri}}},
            {"position", {{"line", line}, {"character", before.size() - (before.rfind('\n') + 1)}}}};
        notify("textDocument/didOpen",
            {{"textDocument", {{"uri", uri}, {"languageId", "vbscript"}, {"version", 1}, {"text", text}}}});
    }
    Json askHere(const std::string &method, const Json &more = Json::object())
    {
        auto params = m_place;
        params.update(more);
        return request("textDocument/" + method, params);
    }

    MemoryFiles disk;
    std::vector<Json> received;
    Session session{disk, {}, [this](const std::string &text) { received.push_back(Json::parse(text)); }};

private:
    static inline const Json capabilities{{"textDocument",
        {{"publishDiagnostics", {{"relatedInformation", true}, {"tagSupport", {{"valueSet", {1, 2}}}}}},
            {"codeAction", {{"codeActionLiteralSupport", Json::object()}}},
            {"documentSymbol", {{"hierarchicalDocumentSymbolSupport", true}}}}}};
    int m_lastId = 0;
    Json m_place;
};

/// "2:4-7" for each range, lines from 0, with the file's last letters where it is another one.
std::string places(const Json &list)
{
    std::string out;
    for (const auto &item : list) {
        const auto &range = item["range"];
        const auto uri = item.value("uri", page);
        out += (out.empty() ? "" : " ") + (uri == page ? "" : uri.substr(uri.rfind('/') + 1) + ':')
            + range["start"]["line"].dump() + ':' + range["start"]["character"].dump() + '-'
            + range["end"]["character"].dump();
    }
    return out;
}

TEST(LanguageServer, FindsWhatANameStandsFor)
{
    const struct {
        const char *name;
        const char *text;
        const char *definition;
        const char *references;
    } cases[] = {
        {"a variable", "Dim total\nTotal = 1\nMsgBox to|tal", "0:4-9", "0:4-9 1:0-5 2:7-12"},
        {"a local one", "Dim a\nSub s\nDim a\n|a = 1\nEnd Sub\na = 2", "2:4-5", "2:4-5 3:0-1"},
        {"never declared", "x = 1\nMsgBox |x", "0:0-1", "0:0-1 1:7-8"},
        {"a function's result", "Function F\nF = 1\nEnd Function\ny = |F", "0:9-10", "0:9-10 1:0-1 3:4-5"},
        {"a member", "Class C\nSub S\nEnd Sub\nSub T\nMe.S\nEnd Sub\nEnd Class\nSet o = New C\no.|S", "1:4-5",
            "1:4-5 4:3-4 8:2-3"},
        {"a property's forms",
            "Class C\nProperty Get P\nEnd Property\nProperty Let P(v)\nEnd Property\nEnd Class\n"
            "Set o = New C\no.|P = 1",
            "1:13-14 3:13-14", "1:13-14 3:13-14 7:2-3"},
        {"a class", "Set o = New |C\nClass C\nEnd Class", "1:6-7", "0:12-13 1:6-7"},
        {"by its name", "Sub H|andler\nEnd Sub\nSet r = GetRef(\"Handler\")", "0:4-11", "0:4-11 2:16-23"},
        {"of the language", "x = L|en(y)", "", ""},
    };
    for (const auto &c : cases) {
        Client client;
        client.open(c.text);
        EXPECT_EQ(places(client.askHere("definition")), c.definition) << c.name;
        EXPECT_EQ(places(client.askHere("references")), c.references) << c.name;
    }
}

TEST(LanguageServer, RenamesOrSaysWhyNot)
{
    const struct {
        const char *name;
        const char *text;
        const char *newName;
        const char *outcome;
    } cases[] = {
        {"everywhere", "Dim |a\nA = 1", "count", "0:4-5 1:0-1"},
        {"a word of the language", "|a = 1", "Then", "'Then' is a word of the language."},
        {"no name", "|a = 1", "a b", "'a b' is not a name."},
        {"a name that is taken", "Dim |a, b\na = b", "B", "'B' already means something else: see line 2."},
        {"taken further in", "Dim |a\nSub s\nDim b\nb = a\nEnd Sub", "b",
            "'b' already means something else: see line 4."},
        {"used for something outer", "Dim b\nSub s\nDim |a\na = b\nEnd Sub", "b",
            "'b' already means something else: see line 4."},
        {"who knows whose", "Class C\nPublic |v\nEnd Class\nSet o = x\no.v = 1", "w",
            "Line 5 uses '.v' of an object whose class is not certain."},
        {"elsewhere", "Dim y\ny = |unknown", "b", "'unknown' is declared in no file that is known here."},
    };
    for (const auto &c : cases) {
        Client client;
        client.open(c.text);
        const auto answer = client.askHere("rename", {{"newName", c.newName}});
        EXPECT_EQ(answer.is_string() ? answer.get<std::string>() : places(answer["changes"][page]), c.outcome)
            << c.name;
    }
}

TEST(LanguageServer, FollowsNamesThroughTheFilesOfAJob)
{
    Client client;
    client.disk.files["/w/lib/tools.vbs"] = "Dim count\r\nSub Note(t)\r\ncount = 1\r\nEnd Sub\r\n";
    client.disk.files["/w/job.wsf"] = "<job><script language=\"VBScript\" src=\"lib\\tools.vbs\"/>\r\n"
                                      "<script language=\"VBScript\">\r\nNote count\r\n</script></job>\r\n";
    client.disk.files["/w/other.vbs"] = "Sub Note\r\nEnd Sub\r\n";
    client.open("<job><script language=\"VBScript\" src=\"lib/tools.vbs\"/>\n"
                "<script language=\"VBScript\">\nSub s\ncount = 2\nEnd Sub\nN|ote 1\n</script></job>",
        "file:///w/job.wsf");
    EXPECT_EQ(places(client.askHere("definition")), "tools.vbs:1:4-8");
    EXPECT_EQ(client.askHere("hover")["contents"]["value"], "```vbscript\nSub Note(t)\n```");
    const auto offered = client.askHere("completion").dump();
    EXPECT_NE(offered.find(R"("label":"Note")"), offered.npos);
    const auto changes = client.askHere("rename", {{"newName", "Write"}})["changes"];
    EXPECT_EQ(changes.size(), 2U); // the text in the editor counts, not the one on the disk
    EXPECT_EQ(places(changes["file:///w/job.wsf"]), "5:0-4");
    // An open file keeps the name that the client gave it, however it is escaped.
    client.open("Dim c|ount\nSub Note(t)\nEnd Sub", "file:///w/lib/%74ools.vbs");
    EXPECT_EQ(places(client.askHere("references")), "%74ools.vbs:0:4-9 job.wsf:3:0-5");
}

TEST(LanguageServer, KnowsTheClassesOfTheOtherFilesOfAJob)
{
    const std::string head
        = "<job><script language=\"VBScript\" src=\"lib.vbs\"/>\n<script language=\"VBScript\">\n";
    const std::string job = "file:///w/job.wsf";
    Client client;
    client.disk.files["/w/lib.vbs"]
        = "Class Log\r\nPrivate Sub v(NOTE) : End Sub\r\nPublic Sub Note(text)\r\nEnd Sub\r\nEnd Class\r\n";
    client.open(head + "Set o = New Log\no.N|ote 1\nSet p = New Other\np.Note\n</script></job>", job);
    EXPECT_EQ(places(client.askHere("definition")), "lib.vbs:2:11-15");
    EXPECT_EQ(client.askHere("hover")["contents"]["value"], "```vbscript\nSub Note(text)\n```");
    const auto offered = client.askHere("completion");
    ASSERT_EQ(offered.size(), 1U);
    EXPECT_EQ(offered[0]["label"], "Note");
    const auto changes = client.askHere("rename", {{"newName", "Write"}})["changes"];
    EXPECT_EQ(places(changes["file:///w/lib.vbs"]) + ' ' + places(changes[job]), "2:11-15 3:2-6");
    client.open(head + "Set o = New |Log\nWith o\n.Note x, \nEnd With\n</script></job>", job);
    EXPECT_EQ(places(client.askHere("references")), "job.wsf:2:12-15 lib.vbs:0:6-9");
    EXPECT_EQ(client.askHere("completion").back()["label"], "Log");
    client.open(head + "Set o = x.y\no.Note 1\n</script></job>", job);
    client.open("Class Log\nSub N|ote\nEnd Sub\nEnd Class\n", "file:///w/lib.vbs");
    EXPECT_EQ(client.askHere("rename", {{"newName", "Write"}}),
        "file:///w/job.wsf: Line 4 uses '.Note' of an object whose class is not certain.");
}

TEST(LanguageServer, KnowsWhatTheVariablesOfTheOtherFilesHold)
{
    Client client;
    client.disk.files["/w/lib.vbs"] = "Dim fso\nSet fso = CreateObject(\"Scripting.FileSystemObject\")\n"
                                      "Set book = New Log\nSet either = fso\nSet either = book\n"
                                      "Class Log\nSub Note(text)\nEnd Sub\nEnd Class\n";
    const std::string head = "<script language=\"VBScript\" src=\"lib.vbs\"/><script language=\"VBScript\">";
    const char *cases[][2] = {{"fso.GetFile(x).Co|py", "File.Copy("},
        {"Dim fso\nfso.Copy|File\nSet fso = Nothing", "FileSystemObject.CopyFile("},
        {"book.No|te", "Sub Note("}, {"Set fso = x\nfso.Copy|File", "null"}, {"either.No|te", "null"}};
    for (const auto &[use, hover] : cases) {
        client.open(head + std::string(use), "file:///w/a.wsf");
        EXPECT_EQ(client.askHere("completion").empty(), hover == std::string("null")) << use;
        EXPECT_NE(client.askHere("hover").dump().find(hover), std::string::npos) << use;
    }
}

TEST(LanguageServer, ReportsFindingsAfterEachChange)
{
    Client client;
    client.open("Option Explicit\nDim a\nb = 1\n");
    const auto published = [&] {
        const auto last = std::find_if(client.received.rbegin(), client.received.rend(),
            [](const Json &m) { return m.value("method", "") == "textDocument/publishDiagnostics"; });
        return (*last)["params"]["diagnostics"];
    };
    const auto coded = [&](const char *code) {
        const auto found = published();
        const auto at = std::ranges::find_if(found, [&](const Json &d) { return d["code"] == code; });
        return at == found.end() ? Json() : *at;
    };
    EXPECT_EQ(coded("KV3001")["tags"], Json::array({1}));
    EXPECT_EQ(places(Json::array({coded("KV1101")})), "2:0-1");
    const auto pulled = client.askHere("diagnostic");
    EXPECT_EQ(pulled["items"], published());
    const Json known{{"previousResultId", pulled["resultId"]}};
    EXPECT_EQ(client.askHere("diagnostic", known)["kind"], "unchanged");
    const Json range{{"start", {{"line", 2}, {"character", 0}}}, {"end", {{"line", 2}, {"character", 1}}}};
    client.notify("textDocument/didChange",
        {{"textDocument", {{"uri", page}, {"version", 2}}},
            {"contentChanges", {{{"range", range}, {"text", "a"}}}}});
    EXPECT_EQ(client.received.back()["params"]["version"], 2);
    EXPECT_EQ(client.askHere("diagnostic", known)["kind"], "full");
    EXPECT_TRUE(coded("KV1101").is_null());
    EXPECT_FALSE(coded("KV3002").is_null());
    client.notify("textDocument/didClose", {{"textDocument", {{"uri", page}}}});
    EXPECT_EQ(published(), Json::array());
}

TEST(LanguageServer, LooksAgainAtPagesWhenAnythingIsSaved)
{
    Client client;
    client.open("<p>", "file:///w/a.htm");
    const auto found = client.askHere("diagnostic");
    EXPECT_EQ(found["items"][0]["code"], "KV4001");
    client.disk.files["/w/a.htm"] = "";
    client.notify("textDocument/didSave", {{"textDocument", {{"uri", page}}}});
    EXPECT_EQ(client.received.back()["params"]["diagnostics"], Json::array());
    EXPECT_EQ(client.askHere("diagnostic", {{"previousResultId", found["resultId"]}})["kind"], "full");
}

TEST(LanguageServer, KeepsTheOrderOfTheConversation)
{
    MemoryFiles disk;
    std::string codes;
    Session session(disk, {}, [&](const std::string &text) {
        const auto message = Json::parse(text);
        codes += message.contains("error") ? message["error"]["code"].dump() + ' ' : "ok ";
    });
    for (const char *message :
        {R"({"id":1,"method":"textDocument/hover"})", "{", "[]", R"({"id":[],"method":"x"})",
            R"({"id":2,"method":"initialize","params":{"capabilities":7,"workspaceFolders":3}})",
            R"({"id":3,"method":"initialize","params":{}})", R"({"id":4,"method":"nothing/known"})",
            R"({"id":5,"method":"textDocument/definition","params":{"textDocument":{"uri":7}}})",
            R"({"method":"textDocument/didOpen","params":[]})", R"({"id":"a","method":"workspace/symbol"})",
            R"({"method":"$/cancelRequest","params":{"id":"a"}})", R"({"id":6,"method":"shutdown"})",
            R"({"id":7,"method":"workspace/symbol"})", R"({"method":"exit"})"})
        session.receive(message);
    while (session.processNext()) { }
    EXPECT_EQ(codes, "-32700 -32600 -32600 -32002 -32602 ok -32601 -32602 -32800 ok -32600 ");
    EXPECT_TRUE(session.hasEnded());
    EXPECT_EQ(session.exitCode(), 0);
}

TEST(LanguageServer, OffersSymbolsAndFixes)
{
    Client client;
    client.disk.files["/w/b.vbs"] = "Function ReadAll\r\nEnd Function\r\n";
    client.open("Class C\nPublic v\nSub S(a, ByVal b)\nEnd Sub\nEnd Class\nConst k = 1\nx = New C\n");
    const auto symbols = client.askHere("documentSymbol");
    ASSERT_EQ(symbols.size(), 2U);
    EXPECT_EQ(symbols[0]["children"][1]["detail"], "(a, ByVal b)");
    EXPECT_EQ(places(client.askHere("documentSymbol")), "0:0-9 5:6-11");
    const auto found = client.request("workspace/symbol", {{"query", "rdall"}});
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0]["name"], "ReadAll");
    const Json line{{"start", {{"line", 6}, {"character", 0}}}, {"end", {{"line", 6}, {"character", 1}}}};
    const auto actions = client.askHere("codeAction",
        {{"range", line}, {"context", {{"only", {"quickfix"}}, {"diagnostics", Json::array()}}}});
    ASSERT_FALSE(actions.empty());
    EXPECT_EQ(actions[0]["edit"]["changes"][page][0]["newText"], "Set ");
}

TEST(LanguageServer, HelpsWhileWriting)
{
    const std::string fso = "Set f = CreateObject(\"Scripting.FileSystemObject\")\n";
    const struct {
        const char *name;
        std::string text;
        const char *offered; ///< one that has to be there; "" where there may be none at all
        const char *notOffered;
        const char *call;
    } cases[] = {
        {"members", fso + "f.Co|py", "CopyFile", "f", ""},
        {"members in a With", fso + "With f\n.|\nEnd With", "FileExists", "f", ""},
        {"own members", "Class C\nPrivate v\nSub S\nMe.|\nEnd Sub\nEnd Class", "v", "Abs", ""},
        {"from outside", "Class C\nPrivate v\nSub S\nEnd Sub\nEnd Class\nSet o = New C\no.|", "S", "v", ""},
        {"scope", "Sub s(a)\n|\nEnd Sub\nSub t(b)\nEnd Sub", "a", "b", ""},
        {"classes", "Class C\nEnd Class\nSet x = New |", "C", "Abs", ""},
        {"in a string", "x = \"|", "", "", ""},
        {"a ProgID", "Set x = CreateObject(\"Scripting.|\")", "Scripting.Dictionary", "Abs",
            "CreateObject(progId, [server]) 0"},
        {"a ProgID, unclosed", "Set x = Server.CreateObject(\"", "MSXML2.XMLHTTP", "winmgmts", ""},
        {"after a ProgID", "x = CreateObject(\"a\", |", "Abs", "WScript.Shell",
            "CreateObject(progId, [server]) 1"},
        {"a clause", "On |", "Error", "As", ""},
        {"a name of its own", "Dim |", "", "", ""},
        {"a call", "x = Left(\"a\", |", "Abs", "", "Left(text, length) 1"},
        {"a statement's", fso + "f.CopyFile \"a\", (1 + |", "f", "",
            "FileSystemObject.CopyFile(source, destination, [overwrite]) 1"},
        {"after a parenthesis", "MsgBox (1), |", "Abs", "",
            "MsgBox(prompt, [buttons], [title], [helpFile], [context]) 1"},
        {"an assignment", "x = |", "Abs", "", ""},
        {"a declaration", "Private Sub s(a, |", "Abs", "", ""},
    };
    for (const auto &c : cases) {
        Client client;
        client.open(c.text);
        const auto items = client.askHere("completion");
        const auto offers = [&](const char *name) {
            return std::ranges::any_of(items, [&](const Json &item) { return item["label"] == name; });
        };
        EXPECT_EQ(offers(c.offered), *c.offered != '\0') << c.name;
        EXPECT_FALSE(offers(c.notOffered)) << c.name;
        EXPECT_EQ(items.empty(), *c.offered == '\0') << c.name;
        const auto help = client.askHere("signatureHelp");
        const auto call = help.is_null()
            ? std::string()
            : help["signatures"][0]["label"].get<std::string>() + ' ' + help["activeParameter"].dump();
        EXPECT_EQ(call, c.call) << c.name;
    }
    Client client;
    client.open("' Adds.\nFunction Add(a, b)\nEnd Function\nx = A|dd(1, 2)");
    EXPECT_EQ(client.askHere("hover")["contents"]["value"], "```vbscript\nFunction Add(a, b)\n```\n\nAdds.");
}

TEST(LanguageServer, KnowsTheStructure)
{
    Client client;
    client.open("' a\n' b\nSub s\nIf x Then\ny = 1\nEnd If\n|End Sub\nz = Len(y)");
    EXPECT_EQ(client.askHere("foldingRange").dump(),
        R"([{"endLine":1,"kind":"comment","startLine":0},{"endLine":5,"startLine":2},)"
        R"({"endLine":4,"startLine":3}])");
    const Json options{{"options", {{"tabSize", 4}, {"insertSpaces", true}}}, {"ch", "\n"}};
    EXPECT_EQ(places(client.askHere("onTypeFormatting", options)), "5:0-0");
    client.open("Sub s\nx = 1 + _\n|\nEnd Sub");
    EXPECT_EQ(client.askHere("onTypeFormatting", options).back()["newText"], std::string(8, ' '));
    client.open("' a\n' b\nSub s\nIf x Then\ny = 1\nEnd If\n|End Sub\nz = Len(y)");
    const Json last{
        {"range", {{"start", {{"line", 7}, {"character", 0}}}, {"end", {{"line", 8}, {"character", 0}}}}}};
    EXPECT_EQ(client.askHere("semanticTokens/range", last)["data"],
        Json({7, 0, 1, 1, 0, 0, 2, 1, 10, 0, 0, 2, 3, 4, 4, 0, 4, 1, 1, 0}));
    const auto wider = client.askHere("selectionRange", {{"positions", {{{"line", 7}, {"character", 9}}}}});
    EXPECT_EQ(places(Json::array({wider[0], wider[0]["parent"]})), "7:8-9 7:4-10");
    client.open("<job>|\n<script language=\"VBScript\">\nIf x Then\ny = 1\nEnd If\n</script>\n</job>\n",
        "file:///w/a.wsf");
    EXPECT_EQ(client.askHere("foldingRange").dump(),
        R"([{"endLine":5,"startLine":0},{"endLine":4,"startLine":1},{"endLine":3,"startLine":2}])");
    client.open("|<% If x Then\ny = 1\n%>\n<p>\n<script runat=server>\n' z\n</script><% End If\n%>",
        "file:///w/a.asp");
    EXPECT_EQ(client.askHere("foldingRange").dump(),
        R"([{"endLine":5,"startLine":0},{"endLine":1,"startLine":0},{"endLine":5,"startLine":4}])");
}

} // namespace
