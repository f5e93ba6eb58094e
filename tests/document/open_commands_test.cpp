// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/open_commands.h"

#include "fakes/document_fixture.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

struct OpeningFixture : DocumentFixture {
    explicit OpeningFixture(std::string_view text = {})
        : DocumentFixture(text)
    {
        for (const char *name : {"/a/page.Html", "/a/run.vbs", "/a/code.js", "/a/notes.txt", "/a/style.css",
                 "/a/read.md", "/a/noending", "/a/job.wsf", "/a/app.hta"})
            files.files[name] = "<B>If x Then\n";
    }

    DocumentColouring colouring{{document, state}};
    SaveCommands saving{ports()};
    OpenCommands opening{ports(), saving, colouring};
};

constexpr Colour blue = colours::defaultCode;
constexpr Colour black = colours::black;

TEST(OpenFile, SuitsToolsDebuggerAndColoursToTheType)
{
    struct {
        const char *path;
        bool scriptBefore;
        bool debugPreferred;
        int webShown;
        int scriptShown;
        bool applies;
        Colour tag; ///< of the "<B>" the text starts with
        Colour word; ///< of the "If" after it
        bool debugBefore; ///< by line
        bool debugAfter;
    } const cases[] = {
        {"/a/page.Html", false, true, 0, 0, true, blue, black, true, true},
        {"/a/page.Html", true, true, 1, 0, true, blue, black, true, true},
        {"/a/run.vbs", false, true, 0, 1, true, black, blue, true, true},
        {"/a/run.vbs", true, false, 0, 0, true, black, blue, true, false},
        {"/a/run.vbs", true, true, 0, 0, true, black, blue, false, true},
        {"/a/code.js", false, true, 0, 1, false, black, black, true, true},
        {"/a/code.js", true, true, 0, 0, false, black, black, true, false},
        {"/a/notes.txt", true, true, 0, 0, false, black, black, true, false},
        {"/a/style.css", false, true, 0, 0, false, black, black, true, true},
        {"/a/job.wsf", true, true, 0, 0, false, black, black, true, false},
        {"/a/app.hta", true, true, 1, 0, true, blue, black, true, true},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.path);
        OpeningFixture fixture;
        fixture.state.scriptTools = c.scriptBefore;
        fixture.state.options.lineDebug = c.debugPreferred;
        fixture.state.lineDebugOn = fixture.tools.options[Option::LineDebug] = c.debugBefore;
        ASSERT_TRUE(fixture.opening.loadAccepted(c.path));
        EXPECT_EQ(fixture.tools.webToolsShown, c.webShown);
        EXPECT_EQ(fixture.tools.scriptToolsShown, c.scriptShown);
        EXPECT_EQ(fixture.state.colourApplies, c.applies);
        EXPECT_EQ(fixture.state.lineDebugOn, c.debugAfter);
        EXPECT_EQ(fixture.tools.options[Option::LineDebug], c.debugAfter);
        EXPECT_EQ(fixture.document.ColourAt(1), c.tag);
        EXPECT_EQ(fixture.document.ColourAt(3), c.word);
        EXPECT_TRUE(fixture.state.unsaved);
        EXPECT_TRUE(fixture.document.isDisplayed());
        EXPECT_EQ(fixture.document.pointer(), MousePointer::Default);
        EXPECT_EQ(fixture.document.Text(), "<B>If x Then\r\n");
    }
}

TEST(OpenFromCommandLine, TakesTheTextWhole)
{
    struct {
        const char *name;
        std::string argument;
        std::string text;
        std::string path;
        std::vector<std::string> messages;
        std::string information;
    } const cases[] = {
        {"nothing", "", "kept", "", {}, "(untouched)"},
        {"no such file", "/a/missing.htm", "kept", "", {}, "(untouched)"},
        {"quoted is another name", "\"/a/page.Html\"", "kept", "", {}, "(untouched)"},
        {"not accepted", "/a/read.md", "kept", "", {"KEVRA does not open md type files."}, ""},
        {"no extension", "/a/noending", "kept", "", {"KEVRA does not open  type files."}, ""},
        {"a page", "/a/page.Html", "<B>If x Then\r\n", "/a/page.Html", {}, ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        OpeningFixture fixture("kept");
        fixture.opening.openFromCommandLine(c.argument);
        EXPECT_EQ(fixture.document.Text(), c.text);
        EXPECT_EQ(fixture.state.currentPath, c.path);
        EXPECT_EQ(fixture.messages.texts(), c.messages);
        EXPECT_EQ(fixture.main.information, c.information);
        EXPECT_EQ(fixture.main.titlePath, c.path.empty() ? "(untouched)" : c.path);
        EXPECT_FALSE(fixture.state.busyLoadingOrSaving);
    }
}

TEST(OpenWithDialog, AsksAboutUnsavedTextFirst)
{
    struct {
        const char *name;
        std::string text;
        bool unsaved;
        std::vector<Answer> answers;
        std::vector<std::string> choices;
        std::size_t questions;
        std::string loaded;
        std::vector<std::string> kept; ///< what happens to the old text
    } const cases[] = {
        {"empty text", "", true, {}, {"/a/notes.txt"}, 0, "/a/notes.txt", {"leaves"}},
        {"saved text", "old", false, {}, {"/a/notes.txt"}, 0, "/a/notes.txt", {"leaves"}},
        {"No", "old", true, {Answer::No}, {"/a/notes.txt"}, 1, "/a/notes.txt", {"given up"}},
        {"No, then no file: the text is still there", "old", true, {Answer::No}, {}, 1, "/before", {}},
        {"Yes and saved", "old", true, {Answer::Yes}, {"/a/new.htm", "/a/notes.txt"}, 1, "/a/notes.txt",
            {"saved", "leaves"}},
        {"Yes, Save As cancelled", "old", true, {Answer::Yes}, {"", "/a/notes.txt"}, 1, "/a/notes.txt",
            {"leaves"}},
        {"cancelled", "old", false, {}, {}, 0, "/before", {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        OpeningFixture fixture(c.text);
        fixture.state.unsaved = c.unsaved;
        fixture.state.currentPath = "/before";
        fixture.messages.answers.assign(c.answers.begin(), c.answers.end());
        fixture.dialogs.choices.assign(c.choices.begin(), c.choices.end());
        fixture.opening.openWithDialog();
        EXPECT_EQ(fixture.state.currentPath, c.loaded);
        EXPECT_EQ(fixture.keeper.calls, c.kept);
        EXPECT_EQ(fixture.messages.texts(), std::vector<std::string>(c.questions, "Save the current text?"));
        ASSERT_EQ(fixture.dialogs.openRequests.size(), 1U);
        EXPECT_EQ(fixture.dialogs.openRequests[0].title, "Open a File");
        EXPECT_FALSE(fixture.state.busyLoadingOrSaving);
    }
}

TEST(OpenListed, TakesTypesThatAreRefusedElsewhere)
{
    for (const std::string path : {"/a/app.hta", "/a/read.md"}) {
        SCOPED_TRACE(path);
        OpeningFixture fixture("old");
        fixture.opening.openDropped(path);
        EXPECT_EQ(fixture.document.Text(), "old");
        fixture.opening.openListed(path);
        EXPECT_EQ(fixture.state.currentPath, path);
        EXPECT_EQ(fixture.document.Text(), "<B>If x Then\r\n");
        fixture.files.files[path] = "again";
        EXPECT_TRUE(fixture.opening.reload());
        EXPECT_EQ(fixture.document.Text(), "again");
    }
}

TEST(OpenWithDialog, ARefusedOrUnreadablePathStaysButIsNeverSavedTo)
{
    for (const std::string path : {"/a/read.md", "/a/locked.htm"}) {
        SCOPED_TRACE(path);
        OpeningFixture fixture("typed");
        fixture.files.files["/a/locked.htm"] = "secret";
        fixture.files.unreadable.insert("/a/locked.htm");
        fixture.dialogs.choices.push_back(path);
        fixture.opening.openWithDialog();
        EXPECT_EQ(fixture.state.currentPath, path);
        EXPECT_EQ(fixture.main.titlePath, "(untouched)");
        EXPECT_EQ(fixture.document.Text(), "typed");
        const auto before = fixture.files.files;
        fixture.saving.save();
        EXPECT_EQ(fixture.files.files, before);
        EXPECT_EQ(fixture.dialogs.saveRequests.at(0).proposedName, path.substr(3));
    }
}

TEST(NewDocument, StartsEmptyOrWithTheTemplate)
{
    OpeningFixture fixture("old");
    fixture.state.unsaved = true;
    fixture.state.currentPath = "/a/page.Html";
    fixture.messages.answers = {Answer::No};
    fixture.opening.newFile();
    EXPECT_EQ(fixture.document.TextLength(), 0);
    EXPECT_EQ(fixture.state.currentPath, "");
    EXPECT_FALSE(fixture.state.unsaved);
    EXPECT_EQ(fixture.keeper.calls, std::vector<std::string>{"given up"});

    fixture.opening.startWithTemplate("/a/template.html");
    EXPECT_EQ(fixture.messages.shown.back().icon, Icon::Critical);
    EXPECT_EQ(fixture.document.TextLength(), 0);

    fixture.files.files["/a/template.html"] = "<META charset=utf-8>\n";
    fixture.opening.startWithTemplate("/a/template.html");
    EXPECT_EQ(fixture.document.Text(), "<META charset=utf-8>\r\n");
    EXPECT_FALSE(fixture.file.holds(fixture.document.Text()));
    EXPECT_EQ(fixture.file.format().encoding, Encoding::Utf8);
    EXPECT_EQ(fixture.state.currentPath, "");
    EXPECT_EQ(fixture.document.ColourAt(1), blue);
    EXPECT_TRUE(fixture.state.unsaved) << "leaving it asks";
}

} // namespace
} // namespace kevra
