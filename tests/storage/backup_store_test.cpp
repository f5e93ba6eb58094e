// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/backup_store_posix.h"
#include "storage/file_watch_posix.h"

#include <gtest/gtest.h>

#include <QtCore/QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace kevra {
namespace {

TEST(BackupStore, KnowsWhereATextBelongsAndWhyAndIsPrivate)
{
    QTemporaryDir folder;
    const auto place = folder.path().toStdString() + "/backups";
    const auto mask = ::umask(0);
    BackupStorePosix store(place);
    EXPECT_TRUE(store.keep("/site/page.htm", "first", KeptReason::Replaced));
    EXPECT_TRUE(store.keep("/other/page.htm", "second", KeptReason::GivenUp));
    ::umask(mask);
    const auto versions = store.versions();
    ASSERT_EQ(versions.size(), 2U);
    EXPECT_EQ(versions[0].path, "/other/page.htm");
    EXPECT_EQ(versions[0].reason, KeptReason::GivenUp);
    EXPECT_EQ(store.content(versions[1].name), "first");
    EXPECT_EQ(static_cast<unsigned>(fs::status(place).permissions()), 0700U);
    for (const auto &entry : fs::directory_iterator(place))
        EXPECT_EQ(static_cast<unsigned>(entry.status().permissions()), 0600U) << entry;
    for (const auto &version : versions)
        EXPECT_TRUE(store.remove(version.name));
    EXPECT_TRUE(fs::is_empty(place));
}

TEST(FileWatch, NoticesEveryKindOfWriter)
{
    QTemporaryDir folder;
    const auto path = folder.path().toStdString() + "/page.htm";
    const auto put = [](const std::string &file, const char *bytes) { std::ofstream(file) << bytes; };
    put(path, "old");
    std::mutex mutex;
    std::condition_variable notified;
    int times = 0;
    FileWatch watch([&] {
        const std::lock_guard lock(mutex);
        ++times;
        notified.notify_all();
    });
    watch.watch(path);
    {
        std::unique_lock lock(mutex);
        notified.wait(lock, [&] { return times > 0; }); // it has begun
    }
    const std::pair<const char *, std::function<void()>> writers[] = {
        {"rewrites", [&] { put(path, "new"); }},
        {"renames over",
            [&] {
                put(path + ".new", "newer");
                fs::rename(path + ".new", path);
            }},
        {"rewrites what was renamed over", [&] { put(path, "newest"); }},
        {"removes", [&] { fs::remove(path); }},
        {"creates", [&] { put(path, "again"); }},
    };
    for (const auto &[name, write] : writers) {
        std::unique_lock lock(mutex);
        const int before = times;
        lock.unlock();
        write();
        lock.lock();
        EXPECT_TRUE(notified.wait_for(lock, std::chrono::minutes(1), [&] { return times > before; })) << name;
    }
}

} // namespace
} // namespace kevra
