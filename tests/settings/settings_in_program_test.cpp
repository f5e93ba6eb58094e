// SPDX-License-Identifier: GPL-3.0-or-later
// The settings dialog in the whole program: what a click changes in the main window, and at the next start.
#include "app/font_frame_panel.h"
#include "app/main_menu_qt.h"
#include "fakes/program.h"

namespace kevra {
namespace {

class SettingsInProgram : public ProgramTest {
protected:
    SettingsInProgram()
    {
        put("page.htm", "<B>x</B>");
        start("page.htm");
    }

    [[nodiscard]] QWidget &dialog()
    {
        app().commands.run("msettings");
        return app().window(SecondaryWindow::Settings);
    }
    void click(const char *name) { ProgramTest::click(dialog(), name); }
    void pick(const char *name, const char *text) { find<QComboBox>(dialog(), name).setCurrentText(text); }
    void enter(const char *name, const char *text) { find<QLineEdit>(dialog(), name).setText(text); }
};

TEST_F(SettingsInProgram, YesAndNoReachTheMainWindowAtOnce)
{
    EXPECT_EQ(document().ColourAt(0), colours::defaultCode);
    click("bnocol");
    EXPECT_EQ(document().ColourAt(0), colours::black);
    click("byescol");
    EXPECT_EQ(document().ColourAt(0), colours::defaultCode);

    pick("boxtime", "5");
    click("btime");
    click("bautoyes");
    EXPECT_EQ(app().timer1.intervalAsDuration(), std::chrono::minutes(5));
    EXPECT_TRUE(app().timer1.isActive());
    app().commands.run("mauto");
    EXPECT_FALSE(app().timer1.isActive());
}

TEST_F(SettingsInProgram, FontAndProgramLastIntoTheNextStart)
{
    put("tool", "#!/bin/sh\ntouch '" + folder.filePath("ran").toUtf8() + "'\n");
    QFile::setPermissions(folder.filePath("tool"), QFile::ReadOwner | QFile::ExeOwner);
    pick("boxface", "Verdana");
    click("bface");
    pick("boxsize", "14");
    click("bsize");
    enter("tap", path("tool").c_str());
    click("bapset");
    enter("tmenu", "R&D");
    click("bmenuset");
    dialog().close();
    EXPECT_EQ(document().Font(), (EditorFont{"Verdana", 14}));

    start();
    EXPECT_EQ(document().Font(), (EditorFont{"Verdana", 14}));
    EXPECT_EQ(app().mainWindow().fonts().face(), "Verdana");
    EXPECT_EQ(app().mainWindow().menus().action("mex")->text(), "&R&&D");
    app().commands.run("mex");
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(folder.filePath("ran")); }));
}

TEST_F(SettingsInProgram, OptionsWorkWithoutAFileToKeepThem)
{
    SettingsStoreQt().deleteSetting(settingsApplication);
    const auto file = QSettings(QSettings::IniFormat, QSettings::UserScope, "kevra", "kevra285").fileName();
    ASSERT_TRUE(QDir().mkpath(file + "/a folder stands there"));
    start();
    click("bfsono");
    EXPECT_FALSE(app().document.fsoMenu);
    const auto &notStored = find<QLabel>(dialog(), "lnotstored");
    EXPECT_FALSE(notStored.text().isEmpty());
    EXPECT_TRUE(QDir(file).removeRecursively());
    click("bnocoms");
    EXPECT_TRUE(notStored.text().isEmpty());
    end();
    EXPECT_EQ(readSetting(SettingsStoreQt(), keys::fsoMenu), "no") << "written with the next one";
}

} // namespace
} // namespace kevra
