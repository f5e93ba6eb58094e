// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/preview_file.h"

#include "fakes/document_fixture.h"
#include "fakes/preview_records.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace kevra {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr auto place = "/site/kevratemp.html";
constexpr auto aside = "/site/kevratemp.html.aside";

struct Program {
    Program(FileStore &files, BackupStore &backups, const FakePreviewRecords::Records &shared)
        : records(shared)
        , page(files, backups, records)
    {
    }
    FakePreviewRecords records;
    PreviewFile page;
};

TEST(PreviewFile, SeveralProgramsInOneFolderLeaveItAsItWas)
{
    for (const bool theirs : {false, true}) {
        std::vector<std::size_t> order{0, 1, 2};
        do {
            FakeFileStore files;
            FakeBackupStore backups;
            if (theirs)
                files.files[place] = "theirs";
            const auto before = files.files;
            const auto shared = FakePreviewRecords().records;
            Program programs[]
                = {{files, backups, shared}, {files, backups, shared}, {files, backups, shared}};
            for (auto &program : programs)
                EXPECT_TRUE(program.page.write(place, "one of their pages"));
            EXPECT_TRUE(programs[order[1]].page.write(place, "once more"));
            for (const auto which : order)
                programs[which].page.remove();
            EXPECT_EQ(files.files, before);
            EXPECT_THAT(*shared, IsEmpty());
            EXPECT_THAT(backups.kept, IsEmpty());
        } while (std::ranges::next_permutation(order).found);
    }
}

/// The disk as it stands at every single change of it, as a kill leaves it.
class KilledFileStore : public FakeFileStore {
public:
    explicit KilledFileStore(FakePreviewRecords &records)
        : m_records(records)
    {
    }
    WriteOutcome write(const std::string &path, std::string_view bytes) override
    {
        return keep(), FakeFileStore::write(path, bytes);
    }
    bool remove(const std::string &path) override { return keep(), FakeFileStore::remove(path); }
    bool rename(const std::string &from, const std::string &to) override
    {
        return keep(), FakeFileStore::rename(from, to);
    }
    void keep() { moments.emplace_back(*this, *m_records.records); }

    std::vector<std::pair<FakeFileStore, std::map<std::string, PreviewRecords::Entry>>> moments;

private:
    FakePreviewRecords &m_records;
};

TEST(PreviewFile, KilledAtAnyMomentLeavesNothingBehind)
{
    for (const auto *theirs : {"", "theirs", "first", "second"}) {
        FakePreviewRecords records;
        KilledFileStore files(records);
        FakeBackupStore backups;
        if (*theirs)
            files.files[place] = theirs;
        const auto before = files.files;
        {
            PreviewFile page(files, backups, records);
            for (const auto *text : {"first", "second"}) {
                EXPECT_TRUE(page.write(place, text));
                files.keep();
            }
            page.remove();
        }
        for (auto &[disk, entries] : files.moments) {
            for (auto &[name, entry] : entries)
                entry.alive = false;
            FakePreviewRecords next(std::make_shared<FakePreviewRecords::Records::element_type>(entries));
            PreviewFile(disk, backups, next).removeLeftPages();
            EXPECT_EQ(disk.files, before) << theirs;
            EXPECT_THAT(*next.records, IsEmpty());
        }
        EXPECT_THAT(backups.kept, IsEmpty());
    }
}

TEST(PreviewFile, PageThatCannotBeWrittenLeavesThePlaceAsItWas)
{
    FakePreviewRecords records;
    FakeFileStore files;
    FakeBackupStore backups;
    files.files[place] = "theirs";
    files.refused[place] = WriteOutcome::DiskFull;
    EXPECT_FALSE(PreviewFile(files, backups, records).write(place, "page"));
    EXPECT_THAT(files.files, ElementsAre(Pair(place, "theirs")));
}

TEST(PreviewFile, DocumentInAKilledProgramsPlaceStays)
{
    FakePreviewRecords records;
    FakeFileStore files;
    FakeBackupStore backups;
    files.files[place] = "theirs";
    EXPECT_TRUE(PreviewFile(files, backups, records).write(place, "page"));
    std::ignore = files.write(place, "the document");
    records.records->begin()->second.alive = false;
    FakePreviewRecords next(records.records);
    PreviewFile(files, backups, next).removeLeftPages();
    EXPECT_THAT(files.files, ElementsAre(Pair(place, "the document")));
    EXPECT_THAT(backups.kept, ElementsAre(Pair(place, "theirs")));
}

TEST(PreviewFile, FailuresOnTheWayLoseNobodysFile)
{
    FakePreviewRecords records;
    FakeFileStore files;
    FakeBackupStore backups;
    files.files[place] = "theirs";
    PreviewFile page(files, backups, records);
    files.failsLate = {place};
    EXPECT_FALSE(page.write(place, "page"));
    EXPECT_THAT(files.files, ElementsAre(Pair(place, "theirs")));

    files.failsLate.clear();
    EXPECT_TRUE(page.write(place, "page"));
    files.kept = {place};
    page.remove();
    page.removeLeftPages();
    files.kept.clear();
    EXPECT_TRUE(page.write("/other/kevratemp.html", "page"));
    page.remove();
    EXPECT_THAT(files.files, ElementsAre(Pair(place, "theirs")));
    EXPECT_THAT(backups.kept, IsEmpty());
}

TEST(PreviewFile, NoteComesBackAsItWas)
{
    for (const auto &record :
        {PreviewRecord{"/a\nb", 7, "", {}}, PreviewRecord{"/c", 0, aside, FileStamp{-1, 2, 3}}})
        EXPECT_EQ(readPreviewRecord(previewRecordBytes(record)), record);
    EXPECT_FALSE(readPreviewRecord("KEVRA record 1\nforeign"));
}

} // namespace
} // namespace kevra
