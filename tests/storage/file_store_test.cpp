// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/atomic_write_posix.h"
#include "storage/backup_store_posix.h"
#include "storage/checksummed_record.h"
#include "storage/file_handle_posix.h"
#include "storage/file_store_posix.h"
#include "storage/in_place_write_posix.h"

#include <gtest/gtest.h>

#include <QtCore/QTemporaryDir>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace std::string_literals;

namespace {

std::function<int(int)> onFlush; ///< in the system's place

} // namespace

extern "C" int fsync(int descriptor)
{
    return onFlush ? onFlush(descriptor) : static_cast<int>(::syscall(SYS_fsync, descriptor));
}

namespace kevra {
namespace {

class FileStoreOnDisk : public testing::Test {
protected:
    FileStoreOnDisk() { fs::create_directory(state); }
    /// Qt cannot remove names that are not UTF-8.
    ~FileStoreOnDisk() override
    {
        onFlush = nullptr;
        fs::remove_all(root);
    }

    std::string path(const std::string &name) const { return root + "/" + name; }
    std::string put(const std::string &name, const std::string &bytes) const
    {
        std::ofstream(path(name), std::ios::binary) << bytes;
        return path(name);
    }
    /// The number of files, to notice stray ones.
    std::size_t count() const
    {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(root), {}))
            + static_cast<std::size_t>(std::distance(fs::directory_iterator(state), {}));
    }

    QTemporaryDir folder;
    std::string root = folder.path().toStdString();
    std::string state = root + "/state";
    FileStorePosix store{state, root};
};

TEST_F(FileStoreOnDisk, WritesUnderTheLongestNameAndThroughADanglingLink)
{
    const auto longest = path(std::string(251, 'n').append(".htm"));
    const auto before = count();
    for (const auto &bytes : {"first"s, ""s, "a\0b"s}) {
        EXPECT_EQ(store.write(longest, bytes), WriteOutcome::Ok);
        EXPECT_EQ(store.read(longest), bytes);
    }
    EXPECT_EQ(count(), before + 1);
    EXPECT_EQ(store.write(longest + "n", "x"), WriteOutcome::Failed);
    EXPECT_EQ(store.write(path("no/such/folder.htm"), "x"), WriteOutcome::Failed);

    ::symlink("later.htm", path("dangling.htm").c_str());
    EXPECT_EQ(store.write(path("dangling.htm"), "new"), WriteOutcome::Ok);
    EXPECT_TRUE(fs::is_symlink(path("dangling.htm")));
    EXPECT_EQ(store.read(path("later.htm")), "new");
}

TEST_F(FileStoreOnDisk, SavedMeansFlushedAndWhole)
{
    const struct {
        const char *name;
        char failing; ///< "f" the file's flush, "d" its folder's, "s" the file is short afterwards
        WriteOutcome outcome;
        const char *content;
        const char *flushed;
    } cases[] = {
        {"nothing fails", ' ', WriteOutcome::Ok, "new content", "fd"},
        {"the file is not on the disk", 'f', WriteOutcome::Failed, "old", "f"},
        {"its name is not on the disk", 'd', WriteOutcome::Failed, "new content", "fd"},
        {"the disk dropped the end", 's', WriteOutcome::Failed, "old", "f"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        onFlush = nullptr;
        const auto file = put("page.htm", "old");
        std::string flushed;
        onFlush = [&](int descriptor) {
            struct stat status { };
            ::fstat(descriptor, &status);
            flushed += S_ISDIR(status.st_mode) ? 'd' : 'f';
            errno = EIO;
            return flushed.back() == c.failing ? -1 : c.failing == 's' ? ::ftruncate(descriptor, 3) : 0;
        };
        EXPECT_EQ(store.write(file, "new content"), c.outcome);
        EXPECT_EQ(store.read(file), c.content);
        EXPECT_EQ(flushed, c.flushed);
    }
}

TEST_F(FileStoreOnDisk, KeepsLinksModeAndAttributes)
{
    const auto file = put("real.htm", "old");
    ::chmod(file.c_str(), 0640);
    const bool attributes = ::setxattr(file.c_str(), "user.note", "kept", 4, 0) == 0;
    ::symlink("real.htm", path("link.htm").c_str());
    EXPECT_EQ(store.write(path("link.htm"), "new"), WriteOutcome::Ok);
    EXPECT_TRUE(fs::is_symlink(path("link.htm")));
    EXPECT_EQ(store.read(file), "new");
    EXPECT_EQ(static_cast<unsigned>(fs::status(file).permissions()), 0640U);
    char note[4] = {};
    EXPECT_EQ(::getxattr(file.c_str(), "user.note", note, 4), attributes ? 4 : -1);
}

TEST_F(FileStoreOnDisk, WritesInPlaceWhatHasMoreThanOneName)
{
    for (const auto &bytes : {"longer than before"s, "x"s, ""s}) {
        const auto file = put("one.htm", "old bytes");
        fs::create_hard_link(file, path("two.htm"));
        const auto before = count();
        EXPECT_EQ(store.write(file, bytes), WriteOutcome::Ok);
        EXPECT_EQ(store.read(path("two.htm")), bytes);
        EXPECT_EQ(fs::hard_link_count(file), 2U);
        EXPECT_EQ(count(), before);
        fs::remove(path("two.htm"));
    }
}

TEST_F(FileStoreOnDisk, RefusesWhatIsNoFile)
{
    fs::create_directory(path("folder.htm"));
    ::mkfifo(path("fifo.htm").c_str(), 0600);
    ::symlink("circle.htm", path("circle.htm").c_str());
    for (const auto &[refused, outcome] :
        {std::pair(path("folder.htm"), WriteOutcome::NotAFile), {path("fifo.htm"), WriteOutcome::NotAFile},
            {path("circle.htm"), WriteOutcome::Failed}, {"/dev/null", WriteOutcome::NotAFile},
            {"", WriteOutcome::Failed}, {root + "/", WriteOutcome::Failed}}) {
        SCOPED_TRACE(refused);
        EXPECT_EQ(store.write(refused, "x"), outcome);
        EXPECT_EQ(store.writeDocument(refused, "x", ReadOnlyFiles::Replace, {}), outcome);
        EXPECT_EQ(store.read(refused), std::nullopt);
    }
    EXPECT_FALSE(store.remove(path("folder.htm")));
    EXPECT_TRUE(store.remove(path("missing.htm")));
}

TEST_F(FileStoreOnDisk, StampDiffersAfterEveryWrite)
{
    const auto file = path("page.htm");
    EXPECT_EQ(store.stamp(file), std::nullopt);
    std::ignore = store.write(file, "same");
    const auto first = store.stamp(file);
    std::ignore = store.write(file, "same");
    EXPECT_NE(store.stamp(file), first);
}

TEST_F(FileStoreOnDisk, TheProgramsOwnFilesArePrivateWithAnyMask)
{
    const auto mask = ::umask(0);
    const auto open = put("kevratemp.html", "theirs");
    ::chmod(open.c_str(), 0666);
    EXPECT_EQ(store.writePrivate(open, "page"), WriteOutcome::Ok);
    EXPECT_TRUE(BackupStorePosix(path("backups")).keep("page.htm", "old"));
    ::umask(mask);
    EXPECT_EQ(fs::status(open).permissions(), fs::perms(0600));
    EXPECT_EQ(fs::status(path("backups")).permissions(), fs::perms(0700));
    for (const auto &entry : fs::directory_iterator(path("backups")))
        EXPECT_EQ(entry.status().permissions(), fs::perms(0600));
}

TEST_F(FileStoreOnDisk, RenamesAndReplacesNothing)
{
    const auto theirs = put("theirs", "theirs");
    ::chmod(theirs.c_str(), 0400);
    const auto stamp = store.stamp(theirs);
    put("taken", "taken");
    ::symlink("nowhere", path("link").c_str());
    EXPECT_FALSE(store.rename(theirs, path("taken")));
    EXPECT_FALSE(store.rename(theirs, path("link"))) << "a dangling link is not replaced either";
    EXPECT_FALSE(store.rename(path("missing"), path("free")));
    EXPECT_EQ(store.read(path("taken")), "taken");
    EXPECT_TRUE(store.rename(theirs, path("free")));
    EXPECT_EQ(store.stamp(path("free")), stamp) << "it is the same file";
}

TEST_F(FileStoreOnDisk, CompletesATornWriteButNotAFileChangedSince)
{
    const std::string before = "the old text";
    const std::string after = "NEW TEXT, AND LONGER";
    const struct {
        const char *name;
        std::string now;
        std::string afterwards;
    } cases[] = {
        {"torn: new beginning, old end", after.substr(0, 4) + before.substr(4), after},
        {"torn: new end written first", before + after.substr(before.size()), after},
        {"not begun", before, before},
        {"done", after, after},
        {"somebody else's", "something else", "something else"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const auto file = put("page.htm", c.now);
        put("state/in-place-1", withChecksum({file, before, after}));
        put("state/in-place-2", withChecksum({file, before, after}).substr(0, 40));
        completeTornWrites(state);
        EXPECT_EQ(store.read(file), c.afterwards);
        EXPECT_TRUE(fs::is_empty(state));
    }
    const auto file = put("page.htm", cases[0].now);
    const auto lock = openFile(put("state/in-place-1", withChecksum({file, before, after})), O_RDONLY);
    ASSERT_EQ(::flock(lock.get(), LOCK_EX), 0);
    completeTornWrites(state);
    EXPECT_EQ(store.read(file), cases[0].now) << "another program is writing it";
}

TEST_F(FileStoreOnDisk, RemovesWhatAKilledSaveLeft)
{
    std::ignore = store.write(path("page.htm"), "x");
    put(".kevra-save-0-1-1", "another machine's");
    put(".kevra-saved-by-a-user", "kept");
    removeLeftovers(path("page.htm"));
    EXPECT_TRUE(fs::exists(path(".kevra-save-0-1-1")));
    EXPECT_TRUE(fs::exists(path(".kevra-saved-by-a-user")));
}

} // namespace
} // namespace kevra
