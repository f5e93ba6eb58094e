// SPDX-License-Identifier: GPL-3.0-or-later
// The settings dialog in the whole program: what a click changes in the main window, and at the next start.
#include "app/application_qt.h"
#include "app/font_frame_panel.h"
#include "app/main_menu_qt.h"

#include "settings/setting_access.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

namespace kevra {
namespace {

class Program {
public:
    explicit Program(const QTemporaryDir &folder)
        : app({.portable = false, .autosave = folder.path().toStdString()})
    {
        writeSetting(app.store, keys::firstStart, "no");
        app.start(folder.filePath("page.htm").toStdString());
    }

    [[nodiscard]] QWidget &dialog()
    {
        app.commands.run("msettings");
        return app.window(SecondaryWindow::Settings);
    }
    void click(const char *name)
    {
        QTest::mouseClick(dialog().findChild<QPushButton *>(name), Qt::LeftButton);
    }
    void pick(const char *name, const char *text)
    {
        dialog().findChild<QComboBox *>(name)->setCurrentText(text);
    }
    void enter(const char *name, const QString &text)
    {
        dialog().findChild<QLineEdit *>(name)->setText(text);
    }

    Application app;
};

class SettingsInProgram : public testing::Test {
protected:
    SettingsInProgram()
    {
        SettingsStoreQt().deleteSetting(settingsApplication);
        SettingsStoreQt store;
        writeSetting(store, keys::tempFolder, folder.path().toStdString());
        QFile page(folder.filePath("page.htm"));
        EXPECT_TRUE(page.open(QIODevice::WriteOnly));
        page.write("<B>x</B>");
    }
    ~SettingsInProgram() override { SettingsStoreQt().deleteSetting(settingsApplication); }

    QTemporaryDir folder;
};

TEST_F(SettingsInProgram, YesAndNoReachTheMainWindowAtOnce)
{
    Program program(folder);
    auto &document = program.app.mainWindow().document();
    EXPECT_EQ(document.ColourAt(0), colours::defaultCode);
    program.click("bnocol");
    EXPECT_EQ(document.ColourAt(0), colours::black);
    program.click("byescol");
    EXPECT_EQ(document.ColourAt(0), colours::defaultCode);
    EXPECT_EQ(document.Text(), "<B>x</B>");

    program.pick("boxtime", "5");
    program.click("btime");
    program.click("bautoyes");
    EXPECT_EQ(program.app.timer1.intervalAsDuration(), std::chrono::minutes(5));
    EXPECT_TRUE(program.app.timer1.isActive());
    program.app.commands.run("mauto");
    EXPECT_FALSE(program.app.timer1.isActive());
}

TEST_F(SettingsInProgram, FontAndProgramLastIntoTheNextStart)
{
    QFile tool(folder.filePath("tool"));
    ASSERT_TRUE(tool.open(QIODevice::WriteOnly));
    tool.write("#!/bin/sh\ntouch '" + folder.filePath("ran").toUtf8() + "'\n");
    tool.close();
    tool.setPermissions(tool.permissions() | QFile::ExeOwner);
    {
        Program program(folder);
        program.pick("boxface", "Verdana");
        program.click("bface");
        program.pick("boxsize", "14");
        program.click("bsize");
        program.enter("tap", tool.fileName());
        program.click("bapset");
        program.enter("tmenu", "R&D");
        program.click("bmenuset");
        program.dialog().close();
        EXPECT_EQ(program.app.mainWindow().document().Font(), (EditorFont{"Verdana", 14}));
    }
    Program next(folder);
    EXPECT_EQ(next.app.mainWindow().document().Font(), (EditorFont{"Verdana", 14}));
    EXPECT_EQ(next.app.mainWindow().fonts().face(), "Verdana");
    EXPECT_EQ(next.app.mainWindow().menus().action("mex")->text(), "&R&&D");
    next.app.commands.run("mex");
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(folder.filePath("ran")); }));
}

TEST_F(SettingsInProgram, OptionsWorkWithoutAFileToKeepThem)
{
    SettingsStoreQt().deleteSetting(settingsApplication);
    const auto file = QSettings(QSettings::IniFormat, QSettings::UserScope, "kevra", "kevra285").fileName();
    ASSERT_TRUE(QDir().mkpath(file + "/a folder stands there"));
    {
        Program program(folder);
        program.click("bfsono");
        EXPECT_FALSE(program.app.document.fsoMenu);
        const auto &notStored = *program.dialog().findChild<QLabel *>("lnotstored");
        EXPECT_FALSE(notStored.text().isEmpty());
        EXPECT_TRUE(QDir(file).removeRecursively());
        program.click("bnocoms");
        EXPECT_TRUE(notStored.text().isEmpty());
    }
    EXPECT_EQ(readSetting(SettingsStoreQt(), keys::fsoMenu), "no") << "written with the next one";
}

} // namespace
} // namespace kevra
