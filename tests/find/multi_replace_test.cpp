// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/multi_replace.h"

#include "fakes/files.h"
#include "fakes/messages.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

class FakeMultiView : public MultiView {
public:
    MultiRequest entered() const override { return request; }
    void showFiles(const std::vector<ListedFile> &files) override
    {
        outcomes.assign(files.size(), FileOutcome::Added);
    }
    void showFile(std::size_t index, const ListedFile &file) override { outcomes[index] = file.outcome; }
    bool shouldContinue(std::size_t done, std::size_t) override { return done != cancelAt; }
    void showSummary(const std::string &text) override { summary = text; }
    void showUndo(bool) override { }

    MultiRequest request{{.text = "old", .replacement = "new"}};
    std::vector<FileOutcome> outcomes;
    std::size_t cancelAt = static_cast<std::size_t>(-1);
    std::string summary;
};

class FakeOpenDocument : public OpenDocument {
public:
    bool isDocument(const std::string &) const override { return false; }
    bool hasUnsavedChangesOf(const std::string &path) const override
    {
        if (asked)
            asked(path);
        return path == unsaved;
    }
    void fileWritten(const std::string &path) override { written.push_back(path); }

    std::string unsaved;
    std::function<void(const std::string &)> asked;
    std::vector<std::string> written;
};

class MultiReplaceTest : public testing::Test {
protected:
    void add(const std::string &path, std::string bytes)
    {
        files.files[path] = std::move(bytes);
        multi.addFiles({path});
    }

    FakeFileStore files;
    FakeOpenDocument open;
    FakeMessages messages;
    FakeMultiView view;
    MultiReplace multi{files, open, messages, view};
};

TEST_F(MultiReplaceTest, KeepsEncodingsAndLineEnds)
{
    struct {
        const char *path;
        std::string before;
        std::string after;
    } const cases[] = {
        {"unix.html", "an Old\nold\n", "an new\nnew\n"},
        {"dos.html", "old\r\n", "new\r\n"},
        {"mixed.txt", "a\rold\nb\r\n", "a\rnew\nb\r\n"},
        {"western.html", "caf\xE9 old", "caf\xE9 new"},
        {"marked.txt", "\xEF\xBB\xBFold", "\xEF\xBB\xBFnew"},
        {"wide.vbs", std::string("\xFF\xFEo\0l\0d\0", 8), std::string("\xFF\xFEn\0e\0w\0", 8)},
        {"without.txt", "nothing", "nothing"},
    };
    for (const auto &c : cases)
        add(c.path, c.before);
    multi.preview();
    EXPECT_EQ(view.summary, "7 hits in 6 files, 0 files left out. Nothing has been written yet.");
    EXPECT_TRUE(files.writes.empty());
    multi.replaceAll();
    for (const auto &c : cases)
        EXPECT_EQ(files.files[c.path], c.after) << c.path;
    EXPECT_EQ(view.summary, "7 replacements in 6 files, 0 files left out.");
    EXPECT_EQ(files.files.size(), std::size(cases)) << "no backup that was not asked for";
    EXPECT_EQ(files.writes.count("without.txt"), 0u);
    EXPECT_EQ(open.written.size(), 6u);
    std::ignore = files.write("dos.html", "changed since");
    multi.undoReplacement();
    for (const auto &c : cases)
        EXPECT_EQ(files.files[c.path], c.path == std::string("dos.html") ? "changed since" : c.before)
            << c.path;
}

TEST_F(MultiReplaceTest, SaysWhatUndoCannotPutBack)
{
    MultiReplace small(files, open, messages, view, 5);
    files.files = {{"a", "old"}, {"b", "old, old"}, {"c", "xold"}};
    small.addFiles({"a", "b", "c"});
    small.preview();
    EXPECT_TRUE(view.summary.ends_with("Keep a backup keeps them.")) << view.summary;
    small.replaceAll();
    EXPECT_EQ(view.outcomes,
        (std::vector{
            FileOutcome::Replaced, FileOutcome::ReplacedWithoutUndo, FileOutcome::ReplacedWithoutUndo}));
    EXPECT_TRUE(view.summary.ends_with("2 files cannot be put back: too much to keep.")) << view.summary;
    small.undoReplacement();
    EXPECT_EQ(files.files["a"], "old");
    EXPECT_EQ(files.files["b"], "new, new");
    small.replaceAll();
    small.replaceAll();
    EXPECT_EQ(view.outcomes[0], FileOutcome::Replaced) << "what was put back takes no room";
}

TEST_F(MultiReplaceTest, LeavesOutWhatCannotBeReplaced)
{
    using enum FileOutcome;
    const char *const names[]
        = {"binary", "secret", "gone", "changed", "locked", "full", "open", "raced", "good"};
    for (const auto *name : names)
        add(name, "old text");
    files.files["binary"] = std::string("old\0", 4);
    files.unreadable.insert("secret");
    open.unsaved = "open";
    multi.preview();
    EXPECT_EQ(view.outcomes,
        (std::vector{Binary, Unreadable, Hits, Hits, Hits, Hits, UnsavedInEditor, Hits, Hits}));
    EXPECT_EQ(messages.texts(),
        std::vector<std::string>{
            "\"open\" is open in the editor and has unsaved changes. Save it before replacing in it."});
    files.files.erase("gone");
    files.files["changed"] = "old and longer";
    open.asked = [this](const std::string &path) {
        if (path == "raced")
            files.files[path] = "old and written while it is read";
    };
    files.refused = {{"locked", WriteOutcome::Denied}, {"full", WriteOutcome::DiskFull}};
    multi.replaceAll();
    EXPECT_EQ(view.outcomes,
        (std::vector{
            Binary, Unreadable, Gone, Changed, Denied, DiskFull, UnsavedInEditor, Changed, Replaced}));
    EXPECT_EQ(view.summary, "1 replacement in 1 file, 8 files left out.");
    EXPECT_EQ(files.files["good"], "new text");
    for (const auto *name : {"locked", "full", "open"})
        EXPECT_EQ(files.files[name], "old text") << name;
}

TEST_F(MultiReplaceTest, NeverChangesTheEncoding)
{
    add("plain.txt", "caf\xE9 old");
    view.request.find.replacement = "\xE2\x86\x92";
    multi.preview();
    multi.replaceAll();
    EXPECT_EQ(view.outcomes, std::vector{FileOutcome::EncodingTooSmall});
    EXPECT_TRUE(files.writes.empty());
}

TEST_F(MultiReplaceTest, WritesNothingWithoutAPreviewOfJustThat)
{
    add("a.txt", "old odd");
    multi.replaceAll();
    EXPECT_TRUE(files.writes.empty());
    view.request.find.text = "odd";
    multi.replaceAll();
    EXPECT_TRUE(files.writes.empty());
    add("b.txt", "odd");
    multi.replaceAll();
    EXPECT_TRUE(files.writes.empty()) << "the hits of a file added since have not been seen";
    multi.replaceAll();
    EXPECT_EQ(files.files["a.txt"], "old new");
    EXPECT_EQ(files.files["b.txt"], "new");
}

TEST_F(MultiReplaceTest, KeepsABackupBesideTheFile)
{
    add("a.txt", "old");
    files.files["a.txt.bak"] = "older";
    files.folders.insert("a.txt.bak2");
    view.request.backup = true;
    multi.preview();
    files.refused = {{"a.txt.bak3", WriteOutcome::DiskFull}};
    multi.replaceAll();
    EXPECT_EQ(files.files["a.txt"], "old");
    files.refused.clear();
    multi.preview();
    multi.replaceAll();
    EXPECT_EQ(files.files["a.txt"], "new");
    EXPECT_EQ(files.files["a.txt.bak"], "older");
    EXPECT_EQ(files.files["a.txt.bak3"], "old");
}

TEST_F(MultiReplaceTest, StopsBeforeTheNextFile)
{
    for (const auto *name : {"a", "b", "c"})
        add(name, "old");
    multi.preview();
    view.cancelAt = 1;
    multi.replaceAll();
    EXPECT_EQ(files.files["a"], "new");
    EXPECT_EQ(files.files["b"], "old");
    EXPECT_EQ(view.summary, "Cancelled. 1 replacement in 1 file, 0 files left out.");
}

TEST_F(MultiReplaceTest, RefusesAndAsksAsTheDocumentDoes)
{
    multi.preview();
    add("a", "old");
    for (const FindRequest &find : {FindRequest{"old", "OLD"}, {"old", ""}, {"", ""}}) {
        view.request.find = find;
        if (!find.text.empty())
            multi.preview();
        multi.replaceAll();
    }
    EXPECT_EQ(messages.texts(),
        (std::vector<std::string>{"No files have been chosen.",
            "You've entered the same text to replace the original!",
            "No text entered. Delete all instances of \"old\"?", "No entry in \"String to Find\""}));
    EXPECT_TRUE(files.writes.empty());
}

} // namespace
} // namespace kevra
