// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/open_commands.h"

#include "fakes/document_desk.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

struct OpeningDesk : DocumentDesk {
    explicit OpeningDesk(std::string_view text = {})
        : DocumentDesk(text)
    {
        for (const char *name : {"/a/page.Html", "/a/run.vbs", "/a/code.js", "/a/notes.txt", "/a/style.css",
                 "/a/read.md", "/a/noending", "/a/job.wsf"})
            files.files[name] = "<B>If x Then\n";
    }

    DocumentColouring colouring{document, state};
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
        Colour word; ///< of the "If" behind it
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
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.path);
        OpeningDesk desk;
        desk.state.scriptTools = c.scriptBefore;
        desk.state.lineDebugPreferred = c.debugPreferred;
        desk.state.lineDebugOn = desk.tools.lineDebugging = c.debugBefore;
        ASSERT_TRUE(desk.opening.loadAccepted(c.path));
        EXPECT_EQ(desk.tools.webToolsShown, c.webShown);
        EXPECT_EQ(desk.tools.scriptToolsShown, c.scriptShown);
        EXPECT_EQ(desk.state.colourApplies, c.applies);
        EXPECT_EQ(desk.state.lineDebugOn, c.debugAfter);
        EXPECT_EQ(desk.tools.lineDebugging, c.debugAfter);
        EXPECT_EQ(desk.document.ColourAt(1), c.tag);
        EXPECT_EQ(desk.document.ColourAt(3), c.word);
        EXPECT_TRUE(desk.state.unsaved);
        EXPECT_TRUE(desk.document.isDisplayed());
        EXPECT_EQ(desk.document.pointer(), MousePointer::Default);
        EXPECT_EQ(desk.document.Text(), "<B>If x Then\r\n");
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
        OpeningDesk desk("kept");
        desk.opening.openFromCommandLine(c.argument);
        EXPECT_EQ(desk.document.Text(), c.text);
        EXPECT_EQ(desk.state.currentPath, c.path);
        EXPECT_EQ(desk.messages.texts(), c.messages);
        EXPECT_EQ(desk.main.information, c.information);
        EXPECT_EQ(desk.main.titlePath, c.path.empty() ? "(untouched)" : c.path);
        EXPECT_FALSE(desk.state.busyLoadingOrSaving);
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
        std::vector<std::string> kept; ///< what becomes of the old text
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
        OpeningDesk desk(c.text);
        desk.state.unsaved = c.unsaved;
        desk.state.currentPath = "/before";
        desk.messages.answers.assign(c.answers.begin(), c.answers.end());
        desk.dialogs.choices.assign(c.choices.begin(), c.choices.end());
        desk.opening.openWithDialog();
        EXPECT_EQ(desk.state.currentPath, c.loaded);
        EXPECT_EQ(desk.keeper.calls, c.kept);
        EXPECT_EQ(desk.messages.texts(), std::vector<std::string>(c.questions, "Save the current text?"));
        ASSERT_EQ(desk.dialogs.openRequests.size(), 1U);
        EXPECT_EQ(desk.dialogs.openRequests[0].title, "Open a File");
        EXPECT_FALSE(desk.state.busyLoadingOrSaving);
    }
}

TEST(OpenWithDialog, ARefusedOrUnreadablePathStaysButIsNeverSavedTo)
{
    for (const std::string path : {"/a/read.md", "/a/locked.htm"}) {
        SCOPED_TRACE(path);
        OpeningDesk desk("typed");
        desk.files.files["/a/locked.htm"] = "secret";
        desk.files.unreadable.insert("/a/locked.htm");
        desk.dialogs.choices.push_back(path);
        desk.opening.openWithDialog();
        EXPECT_EQ(desk.state.currentPath, path);
        EXPECT_EQ(desk.main.titlePath, "(untouched)");
        EXPECT_EQ(desk.document.Text(), "typed");
        const auto before = desk.files.files;
        desk.saving.save();
        EXPECT_EQ(desk.files.files, before);
        EXPECT_EQ(desk.dialogs.saveRequests.at(0).proposedName, path.substr(3));
    }
}

TEST(NewDocument, StartsEmptyOrWithTheTemplate)
{
    OpeningDesk desk("old");
    desk.state.unsaved = true;
    desk.state.currentPath = "/a/page.Html";
    desk.messages.answers = {Answer::No};
    desk.opening.newFile();
    EXPECT_EQ(desk.document.Length(), 0);
    EXPECT_EQ(desk.state.currentPath, "");
    EXPECT_FALSE(desk.state.unsaved);
    EXPECT_EQ(desk.keeper.calls, std::vector<std::string>{"given up"});

    desk.opening.startWithTemplate("/a/template.html");
    EXPECT_EQ(desk.messages.shown.back().icon, Icon::Critical);
    EXPECT_EQ(desk.document.Length(), 0);

    desk.files.files["/a/template.html"] = "<HTML>\n";
    desk.opening.startWithTemplate("/a/template.html");
    EXPECT_EQ(desk.document.Text(), "<HTML>\r\n");
    EXPECT_EQ(desk.state.currentPath, "");
    EXPECT_EQ(desk.document.ColourAt(1), blue);
}

} // namespace
} // namespace kevra
