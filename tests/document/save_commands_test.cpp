// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/save_commands.h"
#include "fakes/document_fixture.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

/// A page read from "/site/index.HTM" and edited since.
struct EditedPage : DocumentFixture {
    EditedPage()
        : DocumentFixture("<P>new")
    {
        files.files["/site/index.HTM"] = "<P>old";
        file.take(*file.read("/site/index.HTM"));
        state.currentPath = "/site/index.HTM";
        state.unsaved = true;
    }
};

TEST(Save, WritesToTheDocumentsFileOrAsksForOne)
{
    struct {
        const char *name;
        std::string text;
        std::string path;
        WriteOutcome outcome;
        bool unsaved;
        std::string onDisk;
        std::vector<std::string> messages;
        std::size_t dialogs;
    } const cases[] = {
        {"nothing to save", "", "/site/index.HTM", WriteOutcome::Ok, true, "<P>old", {"Save what!"}, 0},
        {"to its file", "<P>new", "/site/index.HTM", WriteOutcome::Ok, false, "<P>new", {}, 0},
        {"unwritable: silent", "<P>new", "/site/index.HTM", WriteOutcome::Denied, true, "<P>old", {}, 0},
        {"disk full: silent", "<P>new", "/site/index.HTM", WriteOutcome::DiskFull, true, "<P>old", {}, 0},
        {"new work", "<P>new", "", WriteOutcome::Ok, true, "<P>old", {}, 1},
        {"a path that was refused at opening", "<P>new", "/site/notes.md", WriteOutcome::Ok, true, "<P>old",
            {}, 1},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EditedPage fixture;
        fixture.document.LoadText(c.text);
        fixture.state.currentPath = c.path;
        if (c.outcome != WriteOutcome::Ok)
            fixture.files.refused["/site/index.HTM"] = c.outcome;
        SaveCommands(fixture.ports()).save();
        EXPECT_EQ(fixture.files.files["/site/index.HTM"], c.onDisk);
        EXPECT_EQ(fixture.state.unsaved, c.unsaved);
        EXPECT_EQ(fixture.messages.texts(), c.messages);
        EXPECT_EQ(fixture.dialogs.saveRequests.size(), c.dialogs);
        EXPECT_FALSE(fixture.state.busyLoadingOrSaving);
        EXPECT_EQ(fixture.keeper.calls.size(), c.unsaved ? 0U : 1U);
    }
}

TEST(SaveAs, ProposesNameAndTypeOfTheDocument)
{
    struct {
        std::string path;
        std::string name;
        int filter;
    } const cases[] = {
        {"C:\\site\\index.HTM", "index.HTM", 1}, {"C:\\site\\style.less", "style.less", 1},
        {"/a/b.shtml", "b.shtml", 1}, {"/a/b.txt", "b.txt", 2}, {"/a/b.vbs", "b.vbs", 3},
        {"/a/b.js", "b.js", 4}, {"/a/b.asp", "b.asp", 5}, {"/a/b.php", "b.php", 6}, {"/a/b.css", "b.css", 7},
        {"/a/b.wsf", "b.wsf", 8}, {"/a/b.wsc", "b.wsc", 9}, {"", "", 9}, // keeps the entry it had
    };
    DocumentFixture fixture("text");
    SaveCommands saving(fixture.ports());
    for (const auto &c : cases) {
        SCOPED_TRACE(c.path);
        fixture.state.currentPath = c.path;
        EXPECT_FALSE(saving.saveAs());
        const auto &request = fixture.dialogs.saveRequests.back();
        EXPECT_EQ(request.title, "Save As");
        EXPECT_EQ(request.proposedName, c.name);
        EXPECT_EQ(
            request.folder, c.path.substr(0, c.path.size() - std::min(c.path.size(), c.name.size() + 1)));
        EXPECT_EQ(request.filterIndex, c.filter);
        EXPECT_EQ(request.filters.size(), 10U);
    }
    EXPECT_TRUE(fixture.files.files.empty());
}

TEST(SaveAs, AsksBeforeReplacingAndTakesTheNewName)
{
    struct {
        const char *name;
        std::string chosen;
        std::vector<Answer> answers;
        WriteOutcome outcome;
        bool saved;
        bool asked;
    } const cases[] = {
        {"cancelled", "", {}, WriteOutcome::Ok, false, false},
        {"a new file", "/site/new.htm", {}, WriteOutcome::Ok, true, false},
        {"an existing file, OK", "/site/other.htm", {Answer::Ok}, WriteOutcome::Ok, true, true},
        {"an existing file, Cancel", "/site/other.htm", {Answer::Cancel}, WriteOutcome::Ok, false, true},
        {"a read-only file, OK", "/site/locked.htm", {Answer::Ok}, WriteOutcome::Ok, true, true},
        {"access denied", "/site/other.htm", {Answer::Ok}, WriteOutcome::Denied, false, true},
        {"a folder of that name", "/site/new.htm", {}, WriteOutcome::NotAFile, false, false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EditedPage fixture;
        fixture.files.files["/site/other.htm"] = "other";
        fixture.files.files["/site/locked.htm"] = "locked";
        fixture.files.readOnly.insert("/site/locked.htm");
        const auto before = fixture.files.files;
        if (!c.chosen.empty())
            fixture.dialogs.choices.push_back(c.chosen);
        fixture.messages.answers.assign(c.answers.begin(), c.answers.end());
        if (c.outcome != WriteOutcome::Ok)
            fixture.files.refused[c.chosen] = c.outcome;

        EXPECT_EQ(SaveCommands(fixture.ports()).saveAs(), c.saved);
        EXPECT_EQ(fixture.state.currentPath, c.saved ? c.chosen : "/site/index.HTM");
        EXPECT_EQ(fixture.main.titlePath, c.saved ? c.chosen : "(untouched)");
        EXPECT_EQ(fixture.state.unsaved, !c.saved);
        EXPECT_FALSE(fixture.state.busyLoadingOrSaving);
        EXPECT_EQ(fixture.main.status.starts_with("Not saved: " + c.chosen), c.outcome != WriteOutcome::Ok)
            << fixture.main.status;
        if (c.saved)
            EXPECT_EQ(fixture.files.files[c.chosen], "<P>new");
        else
            EXPECT_EQ(fixture.files.files, before);
        const Message question{
            "Do you want to replace the existing file?", Icon::None, Buttons::OkCancel, "This File Exists"};
        EXPECT_EQ(fixture.messages.shown, std::vector<Message>(c.asked ? 1 : 0, question));
    }
}

TEST(SaveAs, RemovesWhatTheSavedTextMakesStale)
{
    EditedPage fixture;
    fixture.application.tempFolder = "/tmp/pages";
    fixture.state.autosaveWritten = true;
    fixture.files.files["/tmp/pages/kevratemp.html"] = "of somebody else";
    fixture.dialogs.choices.emplace_back("/site/new.htm");
    bool pageRemoved = false;
    bool autosaveRemoved = false;
    SaveCommands saving(fixture.ports());
    saving.onPreviewPageStale([&] { pageRemoved = true; });
    saving.onAutosaveStale([&] { autosaveRemoved = true; });
    ASSERT_TRUE(saving.saveAs());
    EXPECT_TRUE(pageRemoved);
    EXPECT_FALSE(fixture.files.files.contains("/tmp/pages/kevratemp.html"));
    EXPECT_EQ(fixture.backups.kept["/tmp/pages/kevratemp.html"], "of somebody else");
    EXPECT_TRUE(autosaveRemoved);
    EXPECT_FALSE(fixture.state.autosaveWritten);
}

TEST(SaveAs, NeverRemovesTheFileJustSavedNorWhatItCannotKeep)
{
    EditedPage fixture;
    fixture.application.tempFolder = "/tmp/pages";
    fixture.files.files["/tmp/pages/kevratemp.html"] = "of somebody else";
    fixture.backups.broken = true;
    fixture.dialogs.choices = {"/site/new.htm", "/tmp/pages/kevratemp.html"};
    fixture.messages.answers = {Answer::Ok};
    SaveCommands saving(fixture.ports());
    ASSERT_TRUE(saving.saveAs());
    EXPECT_EQ(fixture.files.files["/tmp/pages/kevratemp.html"], "of somebody else");
    fixture.backups.broken = false;
    ASSERT_TRUE(saving.saveAs());
    EXPECT_EQ(fixture.files.files["/tmp/pages/kevratemp.html"], "<P>new");
}

TEST(Save, KeepsForeignContentInTheBackups)
{
    EditedPage fixture;
    SaveCommands saving(fixture.ports());
    saving.save();
    EXPECT_TRUE(fixture.backups.kept.empty());
    std::ignore = fixture.files.write("/site/index.HTM", "changed by another program");
    EXPECT_EQ(fixture.file.diskState(), DiskState::Changed);
    saving.save();
    EXPECT_EQ(fixture.backups.kept["/site/index.HTM"], "changed by another program");
    EXPECT_EQ(fixture.files.files["/site/index.HTM"], "<P>new");
    EXPECT_EQ(fixture.file.diskState(), DiskState::Unchanged);
    fixture.files.files.erase("/site/index.HTM");
    EXPECT_EQ(fixture.file.diskState(), DiskState::Gone);
}

} // namespace
} // namespace kevra
