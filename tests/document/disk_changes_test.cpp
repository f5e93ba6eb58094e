// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/disk_changes.h"

#include "document/versions_commands.h"
#include "fakes/document_fixture.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

class FakeDiskChangeView : public DiskChangeView {
public:
    void showDiskBar(DiskBar shown, const std::string &) override { bar = shown; }
    void showComparison(const TextsToCompare &texts) override { compared = {texts.left, texts.right}; }

    DiskBar bar = DiskBar::None;
    std::pair<std::string, std::string> compared;
};

/// The page "/site/page.htm", opened with "old".
struct WatchedPage : DocumentFixture {
    WatchedPage()
    {
        files.files["/site/page.htm"] = "old";
        opening.openFromCommandLine("/site/page.htm");
    }
    void theyWrite(std::string_view bytes) { std::ignore = files.write("/site/page.htm", bytes); }
    void type(std::string_view text) { document.Replace({0, document.TextLength()}, text); }

    DocumentColouring colouring{{document, state}};
    SaveCommands saving{ports()};
    OpenCommands opening{ports(), saving, colouring};
    FakeDiskChangeView view;
    DiskChanges changes{ports(), opening, view};
};

TEST(DiskChanges, EveryBranchOfTheBar)
{
    const auto none = [](WatchedPage &) {};
    const auto theirs = [](WatchedPage &p) { p.theyWrite("theirs"); };
    const auto removed = [](WatchedPage &p) { p.files.remove("/site/page.htm"); };
    const auto save = [](WatchedPage &p) { p.saving.save(); };
    using Step = std::function<void(WatchedPage &)>;
    const struct {
        const char *name;
        std::string_view typed;
        Step they;
        Step we;
        DiskBar bar;
        std::string text;
        std::string disk;
        std::string kept;
    } cases[] = {
        {"nothing", "mine", none, none, DiskBar::None, "mine", "old", ""},
        {"the same bytes again", "mine", [](WatchedPage &p) { p.theyWrite("old"); }, none, DiskBar::None,
            "mine", "old", ""},
        {"changed", "mine", theirs, none, DiskBar::Changed, "mine", "theirs", ""},
        {"reloaded", "mine", theirs, [](WatchedPage &p) { p.changes.reload(); }, DiskBar::None, "theirs",
            "theirs", ""},
        {"mine kept", "mine", theirs, [](WatchedPage &p) { p.changes.keepMine(); }, DiskBar::None, "mine",
            "theirs", ""},
        {"mine kept, changed again", "mine", theirs,
            [](WatchedPage &p) {
                p.changes.keepMine();
                p.theyWrite("again");
            },
            DiskBar::Changed, "mine", "again", ""},
        {"saved over", "mine", theirs, save, DiskBar::Replaced, "mine", "mine", "theirs"},
        {"saved over, closed", "mine", theirs,
            [&](WatchedPage &p) {
                save(p);
                p.changes.check();
                p.changes.close();
            },
            DiskBar::None, "mine", "mine", "theirs"},
        {"put back", "mine", theirs,
            [&](WatchedPage &p) {
                save(p);
                p.changes.check();
                p.changes.putBack();
            },
            DiskBar::Changed, "mine", "theirs", "theirs"},
        {"reloaded by itself", "old", theirs, [](WatchedPage &p) { p.changes.setReloadsByItself(true); },
            DiskBar::None, "theirs", "theirs", ""},
        {"edited, so not by itself", "mine", theirs,
            [](WatchedPage &p) { p.changes.setReloadsByItself(true); }, DiskBar::Changed, "mine", "theirs",
            ""},
        {"gone", "mine", removed, none, DiskBar::Gone, "mine", "", ""},
        {"gone and left so", "mine", removed, [](WatchedPage &p) { p.changes.keepMine(); }, DiskBar::None,
            "mine", "", ""},
        {"gone and left so, saved, gone again", "mine", removed,
            [&](WatchedPage &p) {
                p.changes.keepMine();
                save(p);
                removed(p);
            },
            DiskBar::Gone, "mine", "", ""},
        {"gone, saved", "mine", removed, save, DiskBar::None, "mine", "mine", ""},
        {"gone and back", "mine", removed, [](WatchedPage &p) { p.theyWrite("old"); }, DiskBar::None, "mine",
            "old", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        WatchedPage page;
        page.type(c.typed);
        c.they(page);
        if (std::string_view(c.name).find("by itself") == std::string_view::npos)
            page.changes.check();
        c.we(page);
        page.changes.check();
        EXPECT_EQ(page.view.bar, c.bar);
        EXPECT_EQ(page.document.Text(), c.text);
        EXPECT_EQ(page.files.files["/site/page.htm"], c.disk);
        EXPECT_EQ(page.backups.kept["/site/page.htm"], c.kept);
    }
}

/// Files that another program writes between a save's check and its write.
class RacingFiles : public FakeFileStore {
public:
    WriteOutcome writeDocument(const std::string &path, std::string_view bytes, ReadOnlyFiles existing,
        const Replaced &replaced) override
    {
        files[path] = "written meanwhile";
        return FakeFileStore::writeDocument(path, bytes, existing, replaced);
    }
};

TEST(DocumentFile, KeepsWhatIsWrittenWhileItSaves)
{
    RacingFiles files;
    FakeBackupStore backups;
    files.files["/p.htm"] = "old";
    DocumentFile file(files, backups);
    file.take(*file.read("/p.htm"));
    EXPECT_EQ(file.save("mine", "/p.htm", ReadOnlyFiles::Refuse), WriteOutcome::Ok);
    EXPECT_EQ(backups.kept["/p.htm"], "written meanwhile");
    EXPECT_EQ(file.replacedContent(), "written meanwhile");
}

TEST(OpenCommands, TheDocumentStaysWhenAFileDoesNotFitIntoMemory)
{
    class HugeFiles : public FakeFileStore {
        std::optional<FileStamp> stamp(const std::string &) const override
        {
            return FileStamp{0, INT64_MAX, 0, 0};
        }
    };
    WatchedPage page;
    HugeFiles files;
    files.files["/site/huge.htm"] = "huge";
    auto ports = page.ports();
    FileCommandPorts huge{ports.document, ports.application, files, ports.backups, ports.dialogs,
        ports.messages, ports.main, ports.tools};
    EXPECT_FALSE(OpenCommands(huge, page.saving, page.colouring).loadAccepted("/site/huge.htm"));
    EXPECT_EQ(page.messages.last(), "There is not enough memory to open /site/huge.htm.");
    EXPECT_EQ(page.document.Text(), "old");
}

} // namespace
} // namespace kevra
