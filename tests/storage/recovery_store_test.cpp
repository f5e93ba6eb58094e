// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/recovery_store_posix.h"

#include "fakes/document_fixture.h"

#include <gtest/gtest.h>

#include <QtCore/QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace kevra {
namespace {

class RecoveryStoreOnDisk : public testing::Test {
protected:
    static TextSnapshot text(const std::string &path, const std::string &bytes)
    {
        static const auto none = std::make_shared<const std::string>();
        return {path, {{}, none, TextKind::Page, {}}, bytes};
    }
    RecoveryStorePosix &open()
    {
        return m_store.emplace(RecoveryStorePosix::Folders{state, {spare}}, backups);
    }
    /// As after a kill: the lock is released, the files stay.
    void kill()
    {
        for (const auto &place : {state, state + "/recovery", spare})
            for (const auto &entry : fs::directory_iterator(place, m_ignored))
                if (entry.is_regular_file() && entry.path().extension() != ".lock")
                    fs::copy_file(entry, entry.path().string() + ".left", m_ignored);
        m_store.reset();
        for (const auto &place : {state, state + "/recovery", spare})
            for (const auto &entry : fs::directory_iterator(place, m_ignored))
                if (entry.path().extension() == ".left")
                    fs::rename(entry, fs::path(entry).replace_extension(), m_ignored);
    }
    std::vector<std::string> offered()
    {
        std::vector<std::string> texts;
        for (const auto &name : m_store->list())
            texts.push_back(m_store->open(name).value_or(RecoveryRecord{}).bytes);
        return texts;
    }

    QTemporaryDir folder;
    std::string state = folder.path().toStdString() + "/state";
    std::string spare = folder.path().toStdString() + "/spare";
    FakeBackupStore backups;

private:
    std::error_code m_ignored;
    std::optional<RecoveryStorePosix> m_store;
};

using Texts = std::vector<std::string>;

TEST_F(RecoveryStoreOnDisk, OffersTheNewestTextFirstRegardlessOfTheClock)
{
    auto &store = open();
    store.writeAutosave(text("/a.htm", "an earlier form of a"));
    store.finish();
    store.writeRecord(text("/a.htm", "a"));
    ASSERT_TRUE(store.setRecordAside());
    store.writeRecord(text("/b.htm", "b"));
    store.finish();
    for (const auto *name : {"/1.record", "/kept-00000000000000000002-1.record"})
        fs::last_write_time(state + "/recovery" + name, fs::file_time_type::min());
    kill();
    open();
    EXPECT_EQ(offered(), (Texts{"b", "a", "an earlier form of a"}));
}

TEST_F(RecoveryStoreOnDisk, OneTextIsOfferedByOneProgram)
{
    auto &store = open();
    store.writeRecord(text("/a.htm", "typed"));
    store.finish();
    const auto offeredByAnother = [&] { return RecoveryStorePosix({state, {spare}}, backups).list().size(); };
    EXPECT_EQ(offeredByAnother(), 0U) << "it is being edited";
    kill();
    open();
    EXPECT_EQ(offered(), Texts{"typed"});
    EXPECT_EQ(offeredByAnother(), 0U) << "it has been offered";
}

TEST_F(RecoveryStoreOnDisk, AnOlderFormOfOneTextIsKeptAsItsVersion)
{
    auto &store = open();
    store.writeAutosave(text("/a.htm", "earlier"));
    store.finish();
    store.writeRecord(text("/a.htm", "later"));
    store.finish();
    fs::last_write_time(state + "/recovery/1.record", fs::file_time_type::min());
    kill();
    open();
    EXPECT_EQ(offered(), Texts{"later"});
    EXPECT_EQ(backups.kept["/a.htm"], "earlier");
}

TEST_F(RecoveryStoreOnDisk, AnAutosaveOlderThanTheSaveIsNotOffered)
{
    auto &store = open();
    store.writeAutosave(text("/a.htm", "before the save"));
    store.textSaved("/a.htm");
    store.finish();
    kill();
    open();
    EXPECT_EQ(offered(), Texts());
    EXPECT_EQ(backups.kept["/a.htm"], "before the save");
}

TEST_F(RecoveryStoreOnDisk, ADocumentSavedAsTheAutosaveFileIsNotTakenForOne)
{
    const auto document = state + "/autosave.txt";
    auto *store = &open();
    const auto stays = [&] {
        store->removeAutosave(true);
        store->writeAutosave(text(document, "not saved yet"));
        store->finish();
        return std::ifstream(document).get() == 'd';
    };
    std::ofstream(document) << "document";
    store->textSaved(document);
    EXPECT_TRUE(stays());
    kill();
    store = &open();
    EXPECT_EQ(offered(), Texts());
    EXPECT_TRUE(stays());
}

TEST_F(RecoveryStoreOnDisk, UsesTheSpareFolderAndGoesBack)
{
    fs::create_directories(state);
    fs::copy_file("/proc/self/comm", state + "/recovery"); // in the folder's place
    auto &store = open();
    store.writeRecord(text("/a.htm", "first"));
    store.finish();
    EXPECT_EQ(store.recordOutcome(), WriteOutcome::Ok);
    kill();
    open();
    EXPECT_EQ(offered(), Texts{"first"});

    auto &again = open();
    fs::remove(state + "/recovery");
    again.writeRecord(text("/a.htm", "second"));
    again.finish();
    EXPECT_TRUE(fs::exists(state + "/recovery/1.record"));
    EXPECT_FALSE(fs::exists(spare + "/1.record")) << "an older form";
}

TEST_F(RecoveryStoreOnDisk, AFailedRecordIsRetriedAndTheTextStaysMeanwhile)
{
    fs::create_directories(state);
    for (const auto &place : {state + "/recovery", spare})
        fs::copy_file("/proc/self/comm", place);
    auto &store = open();
    store.writeRecord(text("/a.htm", "typed"));
    EXPECT_FALSE(store.setRecordAside());
    EXPECT_NE(store.recordOutcome(), WriteOutcome::Ok);
    fs::remove(spare);
    EXPECT_TRUE(store.setRecordAside()) << "without being handed in again";
    kill();
    open();
    EXPECT_EQ(offered(), Texts{"typed"});
}

TEST_F(RecoveryStoreOnDisk, IrregularFilesAreSkipped)
{
    fs::create_directories(state + "/recovery");
    const auto records = state + "/recovery/";
    fs::create_symlink("1.record", records + "1.record");
    ::mkfifo((records + "2.record").c_str(), 0600);
    ::mkfifo((records + "1.lock").c_str(), 0600);
    fs::create_directory(records + "kept-1-1.record");
    fs::create_symlink("/etc/passwd", state + "/autosave.txt");
    auto &store = open();
    EXPECT_EQ(store.passedOver().size(), 5U);
    EXPECT_EQ(offered(), Texts{});
    store.writeRecord(text("/a.htm", "typed"));
    EXPECT_TRUE(store.setRecordAside());
    store.removeAutosave(true);
    EXPECT_TRUE(fs::is_symlink(state + "/autosave.txt"));
}

} // namespace
} // namespace kevra
