// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings_store_qt.h"

#include <QtCore/QtCore>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

namespace kevra {
namespace {

QString fileOf(const char *app)
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, "kevra", app).fileName();
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

TEST(SettingsStore, DeletesASectionOrTheWholeFile)
{
    SettingsStoreQt store;
    store.saveSetting("storetest", "settings", "key", "1");
    store.saveSetting("storetest", "windows", "key", "2");
    store.deleteSetting("storetest", "settings");
    EXPECT_EQ(store.getSetting("storetest", "settings", "key", "default"), "default");
    EXPECT_EQ(store.getSetting("storetest", "windows", "key", "default"), "2");
    store.deleteSetting("storetest");
    EXPECT_FALSE(QFile::exists(fileOf("storetest")));
    EXPECT_EQ(store.getSetting("storetest", "windows", "key", "default"), "default");
}

TEST(SettingsStore, DamagedFilesAreKeptAside)
{
    const QByteArray damaged("[settings\nno line of a settings file\nkey=1\n\xff\xfe");
    SettingsStoreQt store;
    for (const char *app : {"damaged", "damaged-too"}) {
        SCOPED_TRACE(app);
        const auto path = fileOf(app);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(damaged);
        file.close();
        EXPECT_EQ(store.getSetting(app, "settings", "ifcolor", "none"), "none");
        EXPECT_EQ(contents(path), damaged) << "reading changes nothing";
        store.saveSetting(app, "settings", "ifcolor", "no");
        store.saveSetting(app, "settings", "ifif", "no");
        EXPECT_EQ(contents(path + ".damaged"), damaged);
        EXPECT_EQ(SettingsStoreQt().getSetting(app, "settings", "ifcolor", "none"), "no");
    }
}

/// Limits file sizes to `bytes`, like a nearly full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit m_before{};
    void (*m_handler)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

TEST(SettingsStore, AFullDiskLeavesTheFileAndLosesNothing)
{
    const auto path = fileOf("full");
    SettingsStoreQt store;
    store.saveSetting("full", "settings", "long", std::string(1000, 'x'));
    const auto before = contents(path);
    {
        const FileSizeLimit room(before.size()); // enough for the lock file
        store.saveSetting("full", "settings", "ifif", "no");
        EXPECT_TRUE(contents(path) == before) << "not one byte less";
        EXPECT_EQ(store.getSetting("full", "settings", "ifif", "none"), "no");
    }
    store.saveSetting("full", "settings", "iffso", "no");
    const SettingsStoreQt next;
    EXPECT_EQ(next.getSetting("full", "settings", "ifif", "none"), "no") << "written with the next one";
    EXPECT_EQ(next.getSetting("full", "settings", "long", ""), std::string(1000, 'x'));
}

} // namespace
} // namespace kevra
