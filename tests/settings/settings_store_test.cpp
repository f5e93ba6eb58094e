// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings_store_qt.h"

#include <QtCore/QtCore>

#include <gtest/gtest.h>

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

TEST(SettingsStore, ValuesSurviveTheProgram)
{
    const char *values[]
        = {"", "yes", "a, b; c=d", " blanks ", R"(C:\My Documents)", "na\xc3\xafve \"q\"", "@Size(1 2)"};
    for (const char *value : values) {
        SettingsStoreQt().saveSetting("storetest", "settings", "key", value);
        EXPECT_EQ(SettingsStoreQt().getSetting("storetest", "settings", "key", "default"), value);
    }
    SettingsStoreQt store;
    store.saveSetting("storetest", "windows", "key", "2");
    store.deleteSetting("storetest", "settings");
    EXPECT_EQ(store.getSetting("storetest", "settings", "key", "default"), "default");
    EXPECT_EQ(store.getSetting("storetest", "windows", "key", "default"), "2");
    store.deleteSetting("storetest");
    EXPECT_FALSE(QFile::exists(fileOf("storetest")));
    EXPECT_EQ(store.getSetting("storetest", "windows", "key", "default"), "default");
}

TEST(SettingsStore, ADamagedFileIsKeptAside)
{
    const auto path = fileOf("damaged");
    QDir().mkpath(QFileInfo(path).path());
    const QByteArray damaged("[settings\nno line of a settings file\nkey=1\n\xff\xfe");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(damaged);
    file.close();

    SettingsStoreQt store;
    EXPECT_EQ(store.getSetting("damaged", "settings", "ifcolor", "none"), "none");
    EXPECT_EQ(contents(path), damaged) << "reading changes nothing";
    store.saveSetting("damaged", "settings", "ifcolor", "no");
    store.saveSetting("damaged", "settings", "ifif", "no");
    EXPECT_EQ(contents(path + ".damaged"), damaged);
    EXPECT_EQ(SettingsStoreQt().getSetting("damaged", "settings", "ifcolor", "none"), "no");
}

TEST(SettingsStore, AnUnwritableFolderCostsOnlyTheMemory)
{
    const auto path = fileOf("unwritable");
    QDir().mkpath(path); // a folder stands where the file should be
    SettingsStoreQt store;
    store.saveSetting("unwritable", "settings", "key", "value");
    EXPECT_EQ(store.getSetting("unwritable", "settings", "other", "default"), "default");
    store.deleteSetting("unwritable");
    EXPECT_EQ(SettingsStoreQt().getSetting("unwritable", "settings", "key", "default"), "default");
}

} // namespace
} // namespace kevra
