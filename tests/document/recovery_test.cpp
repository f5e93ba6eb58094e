// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/leave_text.h"
#include "document/recovery_offer.h"
#include "fakes/document_fixture.h"
#include "storage/backup_bounds.h"
#include "storage/checksummed_record.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>

namespace kevra {
namespace {

class FakeRecordStore : public RecordStore {
public:
    void writeRecord(TextSnapshot snapshot) override { record = recordBytes(snapshot, 1); }
    void writeCrashRecord(const TextSnapshot &snapshot) override { record = recordBytes(snapshot, 1); }
    void removeRecord() override { record.clear(); }
    bool setRecordAside() override
    {
        if (!broken)
            aside.push_back(std::exchange(record, {}));
        return !broken;
    }
    void writeAutosave(TextSnapshot snapshot) override { autosaved.push_back(fileBytes(snapshot)); }
    void textSaved(const std::string &) override { }
    void finish() override { }

    [[nodiscard]] std::string text() const
    {
        const auto read = readRecord(record);
        return read ? read->bytes : "(none)";
    }

    std::string record;
    bool broken = false;
    std::vector<std::string> aside;
    std::vector<std::string> autosaved;
};

/// A document whose file "/site/page.htm" holds "old".
struct JournalFixture : DocumentFixture {
    JournalFixture()
    {
        files.files["/site/page.htm"] = "old";
        auto opened = file.read("/site/page.htm");
        document.LoadText(opened->decoded.text);
        file.take(std::move(*opened));
        state.currentPath = "/site/page.htm";
    }
    void type(std::string_view text)
    {
        document.Replace({0, document.TextLength()}, text);
        journal.textChanged();
    }

    FakeRecordStore store;
    RecoveryJournal journal{document, state, application, file, store, backups};
};

TEST(RecoveryJournal, KeepsWhatTheFileDoesNotHold)
{
    JournalFixture fixture;
    fixture.journal.writeDown();
    EXPECT_EQ(fixture.store.text(), "(none)");
    fixture.type("first");
    fixture.journal.writeDown();
    EXPECT_EQ(fixture.store.text(), "first");
    fixture.type("second");
    EXPECT_EQ(fixture.store.text(), "first");
    fixture.journal.writeDown();
    EXPECT_EQ(fixture.store.text(), "second");
    fixture.type("old"); // back to what is on disk
    fixture.journal.writeDown();
    EXPECT_EQ(fixture.store.text(), "(none)");
}

TEST(RecoveryJournal, EveryWayOutOfTheDocument)
{
    struct {
        const char *name;
        std::string typed;
        void (*way)(JournalFixture &);
        std::size_t kept;
    } const cases[] = {
        {"no question asked", "new", [](JournalFixture &d) { std::ignore = d.journal.keepForNextStart(); },
            1},
        {"nothing was typed", "old", [](JournalFixture &d) { std::ignore = d.journal.keepForNextStart(); },
            0},
        {"emptied without a question", "",
            [](JournalFixture &d) {
                d.type("work");
                d.journal.writeDown();
                d.type("");
                std::ignore = d.journal.keepForNextStart();
            },
            1},
        {"given up", "new",
            [](JournalFixture &d) {
                d.journal.textGivenUp();
                std::ignore = d.journal.keepForNextStart();
            },
            0},
        {"given up, but typed on", "new",
            [](JournalFixture &d) {
                d.journal.textGivenUp();
                d.type("more");
                std::ignore = d.journal.keepForNextStart();
            },
            1},
        {"saved", "new",
            [](JournalFixture &d) {
                std::ignore = d.file.save(d.document.Text(), "/site/page.htm", ReadOnlyFiles::Refuse);
                d.journal.textSaved();
                std::ignore = d.journal.keepForNextStart();
            },
            0},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        JournalFixture fixture;
        fixture.type(c.typed);
        fixture.journal.writeDown();
        c.way(fixture);
        EXPECT_EQ(fixture.store.aside.size(), c.kept);
        EXPECT_EQ(fixture.store.text(), "(none)");
    }
}

TEST(RecoveryJournal, ATextKeptNowhereStaysUntilItIsSavedOrGivenUp)
{
    const struct {
        const char *name;
        std::deque<Answer> answers;
        bool diskGetsRoom;
        bool left;
        const char *onDisk;
    } cases[] = {
        {"stays", {Answer::Cancel}, false, false, "old"},
        {"given up", {Answer::No}, false, true, "old"},
        {"saved elsewhere", {Answer::Yes}, true, true, "new"},
        {"saving fails as well, then stays", {Answer::Yes, Answer::Cancel}, false, false, "old"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        JournalFixture fixture;
        fixture.store.broken = true;
        fixture.messages.answers = c.answers;
        fixture.type("new");
        const auto saveAs = [&] {
            if (c.diskGetsRoom
                && fixture.file.save("new", "/site/page.htm", ReadOnlyFiles::Replace) == WriteOutcome::Ok)
                fixture.journal.textSaved();
            return c.diskGetsRoom;
        };
        EXPECT_EQ(mayLeaveText(fixture.journal, fixture.messages, saveAs), c.left);
        EXPECT_EQ(fixture.messages.shown.size(), c.answers.size());
        EXPECT_EQ(fixture.files.files["/site/page.htm"], c.onDisk);
        EXPECT_EQ(fixture.store.text(), c.left ? "(none)" : "new");
    }
}

TEST(RecoveryJournal, AutosavesWhenOnAndChanged)
{
    JournalFixture fixture;
    fixture.type("one");
    fixture.journal.autosave();
    EXPECT_TRUE(fixture.store.autosaved.empty());
    fixture.application.autosaveOn = true;
    fixture.journal.autosave();
    fixture.journal.autosave();
    EXPECT_EQ(fixture.store.autosaved, std::vector<std::string>{"one"});
    EXPECT_TRUE(fixture.state.autosaveWritten);
    fixture.type("");
    fixture.journal.autosave();
    EXPECT_EQ(fixture.store.autosaved.size(), 1U);
}

class FakeRecoverableTexts : public RecoverableTexts {
public:
    std::vector<std::string> list() override
    {
        std::vector<std::string> names;
        for (const auto &[name, record] : texts)
            names.push_back(name);
        return names;
    }
    std::optional<RecoveryRecord> open(const std::string &text) override { return texts.at(text); }
    void removeSaved(const std::string &text) override { texts.erase(text); }
    void discard(const std::string &text) override
    {
        discarded.push_back(text);
        texts.erase(text);
    }

    std::map<std::string, std::optional<RecoveryRecord>> texts;
    std::vector<std::string> discarded;
};

class FakeReviewView : public ReviewView {
public:
    void showReview(const std::string &) override { shown = true; }
    void endReview() override { shown = false; }

    bool shown = false;
};

/// Gives its answers one after the other, then Later.
class FakeRecoveryList : public RecoveryList {
public:
    RecoveryAnswer choose(std::span<const RecoveryRow> rows) override
    {
        lists.emplace_back();
        for (const auto &row : rows)
            lists.back() += '[' + row.path + ' ' + std::to_string(row.size) + ' ' + row.beginning + ']';
        if (answers.empty())
            return {};
        const auto next = answers.front();
        answers.pop_front();
        return next;
    }
    void endList() override { ended = true; }

    std::deque<RecoveryAnswer> answers;
    std::vector<std::string> lists;
    bool ended = false;
};

struct OfferFixture : JournalFixture {
    OfferFixture()
    {
        left.texts["1"]
            = RecoveryRecord{"/site/lost.htm", "lost\n", {Encoding::Windows1252, false, LineEnds::Lf, {}}};
    }

    DocumentColouring colouring{{document, state}};
    SaveCommands saving{ports()};
    OpenCommands opening{ports(), saving, colouring};
    FakeRecoverableTexts left;
    FakeReviewView view;
    FakeRecoveryList list;
    RecoveryOffer offer{ports(), saving, opening, journal, left, view, list};
};

using enum Answer;

TEST(RecoveryOffer, AfterLookingTheDocumentComesBack)
{
    struct {
        const char *name;
        void (*decide)(OfferFixture &);
        bool left;
        std::string saved;
        bool reviewing;
    } const cases[] = {
        {"saved", [](OfferFixture &d) { d.offer.saveReviewed(); }, false, "lost\n", false},
        {"saving failed",
            [](OfferFixture &d) {
                d.files.refused["/site/kept.htm"] = WriteOutcome::DiskFull;
                d.offer.saveReviewed();
            },
            true, "", true},
        {"discarded", [](OfferFixture &d) { d.offer.discardReviewed(); }, false, "", false},
        {"later", [](OfferFixture &d) { d.offer.leaveReviewed(); }, true, "", false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        OfferFixture fixture;
        fixture.messages.answers = {Yes, Yes};
        fixture.offer.offer();
        ASSERT_TRUE(fixture.offer.reviewing());
        EXPECT_FALSE(fixture.state.unsaved);
        fixture.dialogs.choices.emplace_back("/site/kept.htm");
        c.decide(fixture);
        EXPECT_EQ(fixture.left.texts.contains("1"), c.left);
        EXPECT_EQ(fixture.files.files["/site/kept.htm"], c.saved);
        EXPECT_EQ(fixture.offer.reviewing(), c.reviewing);
        for (const auto &request : fixture.dialogs.saveRequests)
            EXPECT_EQ(request.proposedName, "lost.htm");
        EXPECT_EQ(fixture.document.Text(), c.reviewing ? "lost\r\n" : "old");
        EXPECT_EQ(fixture.state.currentPath, c.reviewing ? "" : "/site/page.htm");
        EXPECT_EQ(fixture.view.shown, c.reviewing);
        fixture.type("more");
        fixture.journal.writeDown();
        EXPECT_EQ(fixture.store.text(), c.reviewing ? "(none)" : "more") << "a reviewed text has its record";
    }
}

TEST(RecoveryOffer, AnotherDocumentEndsTheReview)
{
    OfferFixture fixture;
    fixture.messages.answers = {Yes, Yes};
    fixture.offer.offer();
    fixture.opening.newFile();
    EXPECT_FALSE(fixture.offer.reviewing());
    EXPECT_TRUE(fixture.left.texts.contains("1"));
    EXPECT_EQ(fixture.document.Text(), "");
}

TEST(RecoveryOffer, SavedWithoutReviewOverTheOpenFileItIsShown)
{
    OfferFixture fixture;
    fixture.messages.answers = {Yes, No, Ok};
    fixture.dialogs.choices.emplace_back("/site/page.htm");
    fixture.offer.offer();
    EXPECT_EQ(fixture.document.Text(), "lost\r\n");
    EXPECT_EQ(fixture.file.diskState(), DiskState::Unchanged);
}

TEST(RecoveryOffer, ShowsATextAsWhatItIs)
{
    OfferFixture fixture;
    fixture.left.texts["1"]->path = "/site/lost.vbs";
    fixture.left.texts["1"]->bytes = "If x Then\n";
    fixture.messages.answers = {Yes, Yes};
    fixture.offer.offer();
    EXPECT_EQ(fixture.tools.scriptToolsShown, 1);
    EXPECT_EQ(fixture.document.ColourAt(0), colours::defaultCode);
    EXPECT_EQ(fixture.main.titlePath, "/site/lost.vbs");
}

TEST(RecoveryOffer, OneTextIsAQuestionWithItsDetails)
{
    OfferFixture fixture;
    fixture.left.texts["2"] = std::nullopt; // damaged
    fixture.left.texts["3"] = RecoveryRecord{"/site/page.htm", "old", {}}; // on the disk after all
    fixture.messages.answers = {Cancel};
    fixture.offer.offer();
    ASSERT_EQ(fixture.messages.shown.size(), 1U);
    const auto &details = fixture.messages.shown.front().details;
    for (const auto *part : {"/site/lost.htm", "5 bytes", "    lost\n"})
        EXPECT_NE(details.find(part), std::string::npos) << part << " in " << details;
    EXPECT_FALSE(fixture.left.texts.contains("3"));
    EXPECT_TRUE(fixture.list.lists.empty());
}

TEST(RecoveryOffer, SeveralTextsAreAListUntilAllAreDealtWith)
{
    using enum RecoveryChoice;
    const std::string both = "[/site/lost.htm 5 lost\n][ 8 untitled\n]";
    const struct {
        const char *name;
        std::deque<RecoveryAnswer> answers;
        const char *saveUnder; ///< empty: the dialog is cancelled
        std::vector<std::string> lists;
        std::vector<std::string> left;
    } cases[] = {
        {"later", {}, "", {both}, {"1", "4"}},
        {"not wanted, then later", {{Discard, 1}}, "", {both, "[/site/lost.htm 5 lost\n]"}, {"1"}},
        {"saved, not wanted", {{Save, 0}, {Discard, 0}}, "/site/kept.htm", {both, "[ 8 untitled\n]"}, {}},
        {"not saved after all", {{Save, 0}}, "", {both, both}, {"1", "4"}},
        {"looked at, then the other one", {{Look, 1}, {Discard, 0}}, "", {both, "[/site/lost.htm 5 lost\n]"},
            {"4"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        OfferFixture fixture;
        fixture.left.texts["4"] = RecoveryRecord{{}, "untitled", {}};
        fixture.list.answers = c.answers;
        if (*c.saveUnder)
            fixture.dialogs.choices.emplace_back(c.saveUnder);
        fixture.offer.offer();
        EXPECT_TRUE(fixture.list.ended);
        if (fixture.offer.reviewing())
            fixture.offer.leaveReviewed();
        EXPECT_EQ(fixture.list.lists, c.lists);
        std::vector<std::string> left;
        for (const auto &[text, record] : fixture.left.texts)
            left.push_back(text);
        EXPECT_EQ(left, c.left);
        EXPECT_EQ(fixture.files.files.contains("/site/kept.htm"), *c.saveUnder != 0);
    }
}

TEST(ChecksummedRecord, KnowsDamage)
{
    const auto record = withChecksum({"/site/page.htm", "", std::string(1000, 'x')});
    ASSERT_TRUE(readChecksummed(record));
    for (std::size_t length = 0; length < record.size(); ++length)
        ASSERT_FALSE(readChecksummed(record.substr(0, length))) << length;
    for (std::size_t at = 0; at < record.size(); ++at) {
        auto flipped = record;
        flipped[at] = static_cast<char>(flipped[at] ^ 1);
        ASSERT_FALSE(readChecksummed(flipped)) << at;
    }
}

TEST(Backups, StayWithinTheirBounds)
{
    constexpr std::int64_t day = 24 * 60 * 60;
    constexpr std::int64_t now = 1000 * day;
    std::vector<KeptVersion> versions;
    for (int i = 0; i < 25; ++i)
        versions.push_back({"page" + std::to_string(i), "page", now - i, 10});
    versions.push_back({"old", "notes", now - 31 * day, 10});
    versions.push_back({"recent", "notes", now - 29 * day, 10});
    auto gone = versionsToRemove(versions, now, "page0");
    std::ranges::sort(gone);
    EXPECT_EQ(gone, (std::vector<std::string>{"old", "page20", "page21", "page22", "page23", "page24"}));

    EXPECT_EQ(
        versionsToRemove({{"a", "a", 3, 150'000'000}, {"b", "b", 2, 60'000'000}, {"c", "c", 1, 1}}, 4, "a"),
        (std::vector<std::string>{"b", "c"}));
    // The newest copy stays, even if it is too large or too old.
    EXPECT_EQ(versionsToRemove({{"last", "a", 0, 900'000'000}, {"b", "b", now, 1}}, now, "last"),
        std::vector<std::string>{"b"});
}

} // namespace
} // namespace kevra
