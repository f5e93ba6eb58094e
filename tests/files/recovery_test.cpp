// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/document_desk.h"
#include "files/backup_bounds.h"
#include "files/recovery_offer.h"
#include "files/sealed_record.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kevra {
namespace {

class FakeRecordStore : public RecordStore {
public:
    void writeRecord(TextSnapshot snapshot) override { record = recordBytes(snapshot); }
    void writeCrashRecord(const TextSnapshot &snapshot) override { record = recordBytes(snapshot); }
    void removeRecord() override { record.clear(); }
    void setRecordAside() override { aside.push_back(std::exchange(record, {})); }
    void writeAutosave(TextSnapshot snapshot) override { autosaved.push_back(fileBytes(snapshot)); }
    void finish() override { }

    [[nodiscard]] std::string text() const
    {
        const auto read = readRecord(record);
        return read ? read->bytes : "(none)";
    }

    std::string record;
    std::vector<std::string> aside;
    std::vector<std::string> autosaved;
};

/// A document of which "/site/page.htm" holds "old".
struct JournalDesk : DocumentDesk {
    JournalDesk()
    {
        files.files["/site/page.htm"] = "old";
        auto opened = file.read("/site/page.htm");
        document.LoadText(opened->decoded.text);
        file.take(std::move(*opened));
        state.currentPath = "/site/page.htm";
    }
    void type(std::string_view text)
    {
        document.Replace({0, document.Length()}, text);
        journal.textChanged();
    }

    FakeRecordStore store;
    RecoveryJournal journal{document, state, application, file, store};
};

TEST(RecoveryJournal, KeepsWhatTheFileDoesNotHold)
{
    JournalDesk desk;
    desk.journal.writeDown();
    EXPECT_EQ(desk.store.text(), "(none)");
    desk.type("first");
    desk.journal.writeDown();
    EXPECT_EQ(desk.store.text(), "first");
    desk.type("second");
    EXPECT_EQ(desk.store.text(), "first");
    desk.journal.writeDown();
    EXPECT_EQ(desk.store.text(), "second");
    desk.type("old"); // back to what is on disk
    desk.journal.writeDown();
    EXPECT_EQ(desk.store.text(), "(none)");
}

TEST(RecoveryJournal, EveryWayOutOfTheDocument)
{
    struct {
        const char *name;
        std::string typed;
        void (*way)(JournalDesk &);
        std::size_t kept;
    } const cases[] = {
        {"nobody asked", "new", [](JournalDesk &d) { d.journal.textLeaves(); }, 1},
        {"nothing was typed", "old", [](JournalDesk &d) { d.journal.textLeaves(); }, 0},
        {"emptied without a question", "",
            [](JournalDesk &d) {
                d.type("work");
                d.journal.writeDown();
                d.type("");
                d.journal.textLeaves();
            },
            1},
        {"given up", "new",
            [](JournalDesk &d) {
                d.journal.textGivenUp();
                d.journal.textLeaves();
            },
            0},
        {"given up, but typed on", "new",
            [](JournalDesk &d) {
                d.journal.textGivenUp();
                d.type("more");
                d.journal.textLeaves();
            },
            1},
        {"saved", "new",
            [](JournalDesk &d) {
                std::ignore = d.file.save(d.document.Text(), "/site/page.htm", Existing::KeepReadOnly);
                d.journal.textSaved();
                d.journal.textLeaves();
            },
            0},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        JournalDesk desk;
        desk.type(c.typed);
        desk.journal.writeDown();
        c.way(desk);
        EXPECT_EQ(desk.store.aside.size(), c.kept);
        EXPECT_EQ(desk.store.text(), "(none)");
    }
}

TEST(RecoveryJournal, AutosavesWhenOnAndChanged)
{
    JournalDesk desk;
    desk.type("one");
    desk.journal.autosave();
    EXPECT_TRUE(desk.store.autosaved.empty());
    desk.application.autosaveOn = true;
    desk.journal.autosave();
    desk.journal.autosave();
    EXPECT_EQ(desk.store.autosaved, std::vector<std::string>{"one"});
    EXPECT_TRUE(desk.application.autosaveWritten);
    desk.type("");
    desk.journal.autosave();
    EXPECT_EQ(desk.store.autosaved.size(), 1U);
}

class FakeLeftTexts : public LeftTexts {
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

struct OfferDesk : JournalDesk {
    OfferDesk()
    {
        left.texts["1"]
            = RecoveryRecord{"/site/lost.htm", "lost\n", {Encoding::Windows1252, false, LineEnds::Lf, {}}};
    }

    DocumentColouring colouring{document, state};
    SaveCommands saving{ports()};
    OpenCommands opening{ports(), saving, colouring};
    FakeLeftTexts left;
    FakeReviewView view;
    RecoveryOffer offer{ports(), saving, opening, journal, left, view};
};

using enum Answer;

TEST(RecoveryOffer, AfterLookingTheDocumentComesBack)
{
    struct {
        const char *name;
        void (*decide)(OfferDesk &);
        bool left;
        std::string saved;
        bool reviewing;
    } const cases[] = {
        {"saved", [](OfferDesk &d) { d.offer.saveReviewed(); }, false, "lost\n", false},
        {"saving failed",
            [](OfferDesk &d) {
                d.files.refused["/site/kept.htm"] = Saved::DiskFull;
                d.offer.saveReviewed();
            },
            true, "", true},
        {"discarded", [](OfferDesk &d) { d.offer.discardReviewed(); }, false, "", false},
        {"later", [](OfferDesk &d) { d.offer.leaveReviewed(); }, true, "", false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        OfferDesk desk;
        desk.messages.answers = {Yes, Yes};
        desk.offer.offer();
        ASSERT_TRUE(desk.offer.reviewing());
        EXPECT_FALSE(desk.state.unsaved);
        desk.dialogs.choices.emplace_back("/site/kept.htm");
        c.decide(desk);
        EXPECT_EQ(desk.left.texts.contains("1"), c.left);
        EXPECT_EQ(desk.files.files["/site/kept.htm"], c.saved);
        EXPECT_EQ(desk.offer.reviewing(), c.reviewing);
        for (const auto &request : desk.dialogs.saveRequests)
            EXPECT_EQ(request.proposedName, "lost.htm");
        EXPECT_EQ(desk.document.Text(), c.reviewing ? "lost\r\n" : "old");
        EXPECT_EQ(desk.state.currentPath, c.reviewing ? "" : "/site/page.htm");
    }
}

TEST(RecoveryOffer, SeveralTextsOneAfterTheOther)
{
    OfferDesk desk;
    desk.left.texts["2"] = std::nullopt; // damaged
    desk.left.texts["3"] = RecoveryRecord{"/site/page.htm", "old", {}}; // on the disk after all
    desk.left.texts["4"] = RecoveryRecord{{}, "untitled", {}};
    desk.messages.answers = {Yes, Yes, No};
    desk.offer.offer();
    EXPECT_EQ(desk.messages.shown.size(), 2U);
    desk.offer.leaveReviewed();
    EXPECT_EQ(desk.messages.shown.size(), 3U);
    EXPECT_EQ(desk.left.discarded, std::vector<std::string>{"4"});
    EXPECT_TRUE(desk.left.texts.contains("1"));
    EXPECT_FALSE(desk.left.texts.contains("3"));
}

TEST(SealedRecord, KnowsDamage)
{
    const auto record = sealed({"/site/page.htm", "", std::string(1000, 'x')});
    ASSERT_TRUE(unsealed(record));
    for (std::size_t length = 0; length < record.size(); ++length)
        ASSERT_FALSE(unsealed(record.substr(0, length))) << length;
    for (std::size_t at = 0; at < record.size(); ++at) {
        auto flipped = record;
        flipped[at] = static_cast<char>(flipped[at] ^ 1);
        ASSERT_FALSE(unsealed(flipped)) << at;
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
    auto gone = beyondBounds(versions, now);
    std::ranges::sort(gone);
    EXPECT_EQ(gone, (std::vector<std::string>{"old", "page20", "page21", "page22", "page23", "page24"}));

    EXPECT_EQ(beyondBounds({{"a", "a", 3, 150'000'000}, {"b", "b", 2, 60'000'000}, {"c", "c", 1, 1}}, 4),
        (std::vector<std::string>{"b", "c"}));
}

} // namespace
} // namespace kevra
