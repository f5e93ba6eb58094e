// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/document_desk.h"
#include "files/save_commands.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

/// A page read from "/site/index.HTM" and edited since.
struct EditedPage : DocumentDesk {
    EditedPage()
        : DocumentDesk("<P>new")
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
        Saved outcome;
        bool unsaved;
        std::string onDisk;
        std::vector<std::string> messages;
        std::size_t dialogs;
    } const cases[] = {
        {"nothing to save", "", "/site/index.HTM", Saved::Ok, true, "<P>old", {"Save what!"}, 0},
        {"to its file", "<P>new", "/site/index.HTM", Saved::Ok, false, "<P>new", {}, 0},
        {"unwritable: silent", "<P>new", "/site/index.HTM", Saved::Denied, true, "<P>old", {}, 0},
        {"disk full: silent", "<P>new", "/site/index.HTM", Saved::DiskFull, true, "<P>old", {}, 0},
        {"new work", "<P>new", "", Saved::Ok, true, "<P>old", {}, 1},
        {"a path that was refused at opening", "<P>new", "/site/notes.md", Saved::Ok, true, "<P>old", {}, 1},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EditedPage desk;
        desk.document.LoadText(c.text);
        desk.state.currentPath = c.path;
        if (c.outcome != Saved::Ok)
            desk.files.refused["/site/index.HTM"] = c.outcome;
        SaveCommands(desk.ports()).save();
        EXPECT_EQ(desk.files.files["/site/index.HTM"], c.onDisk);
        EXPECT_EQ(desk.state.unsaved, c.unsaved);
        EXPECT_EQ(desk.messages.texts(), c.messages);
        EXPECT_EQ(desk.dialogs.saveRequests.size(), c.dialogs);
        EXPECT_FALSE(desk.state.busyLoadingOrSaving);
        EXPECT_EQ(desk.keeper.calls.size(), c.unsaved ? 0U : 1U);
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
    DocumentDesk desk("text");
    SaveCommands saving(desk.ports());
    for (const auto &c : cases) {
        SCOPED_TRACE(c.path);
        desk.state.currentPath = c.path;
        EXPECT_FALSE(saving.saveAs());
        const auto &request = desk.dialogs.saveRequests.back();
        EXPECT_EQ(request.title, "Save As");
        EXPECT_EQ(request.proposedName, c.name);
        EXPECT_EQ(
            request.folder, c.path.substr(0, c.path.size() - std::min(c.path.size(), c.name.size() + 1)));
        EXPECT_EQ(request.filterIndex, c.filter);
        EXPECT_EQ(request.filters.size(), 10U);
    }
    EXPECT_TRUE(desk.files.files.empty());
}

TEST(SaveAs, AsksBeforeReplacingAndTakesTheNewName)
{
    struct {
        const char *name;
        std::string chosen;
        std::vector<Answer> answers;
        Saved outcome;
        bool saved;
        bool asked;
    } const cases[] = {
        {"cancelled", "", {}, Saved::Ok, false, false},
        {"a new file", "/site/new.htm", {}, Saved::Ok, true, false},
        {"an existing file, OK", "/site/other.htm", {Answer::Ok}, Saved::Ok, true, true},
        {"an existing file, Cancel", "/site/other.htm", {Answer::Cancel}, Saved::Ok, false, true},
        {"a read-only file, OK", "/site/locked.htm", {Answer::Ok}, Saved::Ok, true, true},
        {"access denied", "/site/other.htm", {Answer::Ok}, Saved::Denied, false, true},
        {"a folder of that name", "/site/new.htm", {}, Saved::NotAFile, false, false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EditedPage desk;
        desk.files.files["/site/other.htm"] = "other";
        desk.files.files["/site/locked.htm"] = "locked";
        desk.files.readOnly.insert("/site/locked.htm");
        const auto before = desk.files.files;
        if (!c.chosen.empty())
            desk.dialogs.choices.push_back(c.chosen);
        desk.messages.answers.assign(c.answers.begin(), c.answers.end());
        if (c.outcome != Saved::Ok)
            desk.files.refused[c.chosen] = c.outcome;

        EXPECT_EQ(SaveCommands(desk.ports()).saveAs(), c.saved);
        EXPECT_EQ(desk.state.currentPath, c.saved ? c.chosen : "/site/index.HTM");
        EXPECT_EQ(desk.main.titlePath, c.saved ? c.chosen : "(untouched)");
        EXPECT_EQ(desk.state.unsaved, !c.saved);
        EXPECT_FALSE(desk.state.busyLoadingOrSaving);
        if (c.saved)
            EXPECT_EQ(desk.files.files[c.chosen], "<P>new");
        else
            EXPECT_EQ(desk.files.files, before);
        const Message question{
            "Do you want to replace the existing file?", Icon::None, Buttons::OkCancel, "This File Exists"};
        EXPECT_EQ(desk.messages.shown, std::vector<Message>(c.asked ? 1 : 0, question));
    }
}

TEST(SaveAs, RemovesWhatTheSavedTextMakesStale)
{
    EditedPage desk;
    desk.application.tempFolder = "/tmp/pages";
    desk.application.autosaveWritten = true;
    desk.files.files["/tmp/pages/kevratemp.html"] = "of somebody else";
    desk.dialogs.choices.emplace_back("/site/new.htm");
    bool pageRemoved = false;
    bool autosaveRemoved = false;
    SaveCommands saving(desk.ports());
    saving.onPageStale([&] { pageRemoved = true; });
    saving.onAutosaveStale([&] { autosaveRemoved = true; });
    ASSERT_TRUE(saving.saveAs());
    EXPECT_TRUE(pageRemoved);
    EXPECT_FALSE(desk.files.files.contains("/tmp/pages/kevratemp.html"));
    EXPECT_EQ(desk.backups.kept["/tmp/pages/kevratemp.html"], "of somebody else");
    EXPECT_TRUE(autosaveRemoved);
    EXPECT_FALSE(desk.application.autosaveWritten);
}

TEST(SaveAs, NeverRemovesTheFileJustSavedNorWhatItCannotKeep)
{
    EditedPage desk;
    desk.application.tempFolder = "/tmp/pages";
    desk.files.files["/tmp/pages/kevratemp.html"] = "of somebody else";
    desk.backups.broken = true;
    desk.dialogs.choices = {"/site/new.htm", "/tmp/pages/kevratemp.html"};
    desk.messages.answers = {Answer::Ok};
    SaveCommands saving(desk.ports());
    ASSERT_TRUE(saving.saveAs());
    EXPECT_EQ(desk.files.files["/tmp/pages/kevratemp.html"], "of somebody else");
    desk.backups.broken = false;
    ASSERT_TRUE(saving.saveAs());
    EXPECT_EQ(desk.files.files["/tmp/pages/kevratemp.html"], "<P>new");
}

TEST(Save, KeepsForeignContentInTheBackups)
{
    EditedPage desk;
    SaveCommands saving(desk.ports());
    saving.save();
    EXPECT_TRUE(desk.backups.kept.empty());
    std::ignore = desk.files.write("/site/index.HTM", "changed by another program");
    EXPECT_EQ(desk.file.diskState(), DiskState::Changed);
    saving.save();
    EXPECT_EQ(desk.backups.kept["/site/index.HTM"], "changed by another program");
    EXPECT_EQ(desk.files.files["/site/index.HTM"], "<P>new");
    EXPECT_EQ(desk.file.diskState(), DiskState::Unchanged);
    desk.files.files.erase("/site/index.HTM");
    EXPECT_EQ(desk.file.diskState(), DiskState::Gone);
}

} // namespace
} // namespace kevra
