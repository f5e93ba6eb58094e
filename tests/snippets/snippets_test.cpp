// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands.h"
#include "checker/checker.h"
#include "colour/marks_of.h"
#include "editor/memory_surface.h"
#include "fakes/document_state.h"
#include "fakes/views.h"
#include "script/host_objects.h"
#include "snippets/fso_popup.h"
#include "snippets/snippet_commands.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kevra {
namespace {

const Snippet &snippetOf(std::string_view button)
{
    return *std::ranges::find(snippets(), button, &Snippet::button);
}

TEST(Snippets, AreInsertedWithTheirColours)
{
    struct {
        const char *name;
        std::string_view button;
        bool comments;
        bool colours;
        std::string_view text;
        std::string_view marks;
    } const cases[] = {
        {"a tag", "bb", true, true, "<B>", "ccc"},
        {"a tag without colour coding", "bb", true, false, "<B>", "---"},
        {"a line", "bfileexists", true, true, "If fso.FileExists() Then", "cc------------------cccc"},
        {"plain", "binstr", false, true, " = InStr()", "----------"},
        {"its comment on the same line", "bleft", true, true, " = Left()   '--(string, #-of-char.-to-return)",
            "------------ggggggggggggggggggggggggggggggggg"},
        {"a literal is painted too", "bdelfile", true, true,
            "fso.DeleteFile\r\n'--DeleteFile filename+path[, delete if read only- as Bool.]",
            "----------------gggggggggggggggggggggggggggggggggggggggggggggggggggggggggggg"},
        {"bare", "bchr", true, true, "Chr(34)", "-------"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        MemorySurface document("over");
        document.Select({0, 4});
        FakeDocumentState state;
        state.options.snippetComments = c.comments;
        state.options.colourCoding = c.colours;
        FakeMainView view;
        SnippetCommands({document, state}, view).insert(snippetOf(c.button));
        EXPECT_EQ(document.Text(), c.text);
        EXPECT_EQ(marksOf(document), c.marks);
        EXPECT_EQ(document.SelStart(), document.TextLength());
        EXPECT_EQ(document.SelColor(), colours::black);
        EXPECT_TRUE(document.hasFocus());
    }
}

TEST(Snippets, PlaceholdersOfTheShortcutAreOrange)
{
    MemorySurface document;
    FakeDocumentState state;
    FakeMainView view;
    SnippetCommands({document, state}, view).insert(snippetOf("bshtcut"));
    const auto at = document.Text().find("<<executable");
    EXPECT_EQ(marksOf(document).substr(at, 20), std::string(19, 'o') + '-');
    EXPECT_EQ(std::ranges::count(document.Text(), '\n'), 9);
}

/// What the analyser knows of the object, against what is offered and hinted at while typing.
TEST(Snippets, HintsAndOffersAreMembersOfTheObject)
{
    const auto &object = *script::objectType(script::typeOfProgId("Scripting.FileSystemObject"));
    for (const auto method : fsoMethods()) {
        EXPECT_NE(script::memberOf(object, method), nullptr) << method;
        const auto line = "x = \"FileSystemObject\"\r\nIf " + std::string(method) + "(f) Then\r\nEnd If\r\n";
        EXPECT_EQ(check(line, false).verdict, "FileSystemObject required - Line 2");
    }
    int hints = 0;
    for (const auto &snippet : snippets()) {
        const std::string text(snippet.commented);
        const auto start = text.find("'--");
        const auto *member = start == text.npos
            ? nullptr
            : script::memberOf(object, text.substr(start + 3, text.find(' ', start) - start - 3));
        if (!member)
            continue;
        ++hints;
        const auto source = text.find("source");
        EXPECT_EQ(member->parameters.list().starts_with("source"), source != text.npos) << text;
        EXPECT_LE(source, text.find("destination")) << text;
    }
    EXPECT_EQ(hints, 3) << "CopyFile, MoveFile, DeleteFile";
}

TEST(FsoPopup, OpensAfterFsoInCodeOnly)
{
    const std::pair<std::string_view, bool> lines[] // the caret is at the end
        = {{"fso.", true}, {"x = FSO.", true}, {"x = \"a\" & fso.", true}, {"x\r\nFso.", true},
            {"so.", false}, {"fso", false}, {"MsgBox \"fso.", false}, {"' fso.", false},
            {"x = \"it's\" & fso.", true}, {"\"open above\r\nfso.", true}, {"  Rem fso.", false},
            {"x = 1 : rem fso.", false}, {"Remark = fso.", true}, {"REM", false}};
    for (const auto &[line, offers] : lines) {
        MemorySurface document(line);
        document.SetSelStart(document.TextLength());
        EXPECT_EQ(offersFsoMethods(document), offers) << line;
    }
}

} // namespace
} // namespace kevra
