// SPDX-License-Identifier: GPL-3.0-or-later
// The settings dialog in the whole program: what a click changes in the main window, and at the next start.
#include "app/font_frame_panel.h"
#include "app/main_menu_qt.h"
#include "fakes/program.h"
#include "settings/options.h"

namespace kevra {
namespace {

class SettingsDialogTest : public ProgramTest {
protected:
    SettingsDialogTest()
    {
        put("page.htm", "<B>x</B>");
        start("page.htm");
    }

    [[nodiscard]] QWidget &dialog()
    {
        app().commands.run("msettings");
        return app().window(SecondaryWindow::Settings);
    }
    template <typename T> T &control(const char *name) { return find<T>(dialog(), name); }
    [[nodiscard]] QAction &item(const char *name) { return *app().mainWindow().menus().action(name); }
    void click(const char *name) { ProgramTest::click(dialog(), name); }
    void type(const char *name, const std::string &text, const char *button)
    {
        control<QLineEdit>(name).clear();
        QTest::keyClicks(&control<QLineEdit>(name), QString::fromStdString(text));
        click(button);
    }
    void pick(const char *name, const char *text, const char *button)
    {
        auto &box = control<QComboBox>(name);
        box.setCurrentIndex(box.findText(text));
        click(button);
    }
    /// Creates a program that creates the file `left`; returns its path.
    std::string tool(const char *name, const char *left)
    {
        put(name, "#!/bin/sh\ntouch '" + folder.filePath(left).toUtf8() + "'\n");
        QFile::setPermissions(folder.filePath(name), QFile::ReadOwner | QFile::ExeOwner);
        return path(name);
    }
};

TEST_F(SettingsDialogTest, YesAndNoAreShownAtOnceAndReadByTheNextStart)
{
    struct {
        const char *yes;
        const char *no;
        const char *lamp;
        const char *key;
        bool EditorOptions::*flag; ///< null for autosave, which the timer shows
        const char *item; ///< marked while it is on
    } const cases[] = {
        {"bfsoyes", "bfsono", "zpop", "iffso", &EditorOptions::fsoMenu, "mfsoset"},
        {"byesdoif", "bnodoif", "zif", "ifif", &EditorOptions::ifChecking, nullptr},
        {"bautoyes", "bautono", "zauto", "autosave", nullptr, "mauto"},
        {"byesdebug", "bnodebug", "zldebug", "ifdebug", &EditorOptions::lineDebug, "mdodebug"},
        {"byescoms", "bnocoms", "zcom", "ifcoms", &EditorOptions::snippetComments, nullptr},
        {"byescol", "bnocol", "zcol", "ifcolor", &EditorOptions::colourCoding, "mcolcode"},
    };
    const auto expectAll = [&](bool on) {
        for (const auto &c : cases) {
            SCOPED_TRACE(on ? c.yes : c.no);
            EXPECT_EQ(
                app().settingsStore.getSetting("kevra285", "settings", c.key, "absent"), on ? "yes" : "no");
            const auto &lamp = control<QLabel>(c.lamp);
            EXPECT_EQ(lamp.text(), on ? "YES" : "NO");
            EXPECT_EQ(lamp.palette().color(QPalette::Window), on ? QColor(0, 240, 0) : QColor(248, 0, 0));
            EXPECT_EQ(c.flag ? app().editorOptions.*c.flag : app().timer1.isActive(), on);
            EXPECT_TRUE(!c.flag || c.flag != &EditorOptions::lineDebug
                || app().shown().document.state.lineDebugOn == on);
            EXPECT_TRUE(!c.item || item(c.item).isChecked() == on);
        }
    };
    pick("boxtime", "5", "btime");
    for (const bool on : {false, true, false}) {
        for (const auto &c : cases)
            click(on ? c.yes : c.no);
        EXPECT_EQ(document().ColourAt(0), on ? colours::defaultCode : colours::black);
        expectAll(on);
        start("page.htm");
        expectAll(on);
    }
    app().commands.run("mauto");
    EXPECT_EQ(app().timer1.intervalAsDuration(), std::chrono::minutes(5));
}

TEST_F(SettingsDialogTest, EntriesAreAppliedStoredAndReadByTheNextStart)
{
    QDir(folder.path()).mkdir("web");
    type("ttemp", path("web/"), "btemp");
    pick("boxtime", "20", "btime");
    pick("boxface", "Verdana", "bface");
    pick("boxsize", "14", "bsize");
    EXPECT_FALSE(control<QPushButton>("bapply").isEnabled());
    const WhenModal<QColorDialog> choose([](QColorDialog &colours) {
        colours.setCurrentColor(QColor(255, 128, 0));
        colours.accept();
    });
    click("bpick");
    EXPECT_EQ(control<QFrame>("piccol").palette().color(QPalette::Window), QColor(255, 128, 0));
    click("bapply");
    EXPECT_FALSE(control<QPushButton>("bapply").isEnabled());
    EXPECT_EQ(document().ColourAt(0), Colour{0x0080FF});
    const auto program = tool("tool", "ran");
    const WhenModal<QFileDialog> browse([&](QFileDialog &files) {
        files.selectFile(QString::fromStdString(program));
        QMetaObject::invokeMethod(&files, "accept");
    });
    click("bbrowse");
    click("bapset");
    type("tmenu", "R&D", "bmenuset");
    QTest::keyClick(&dialog(), Qt::Key_Escape);
    EXPECT_EQ(app().mainWindow().lineNumbers().Font(), (EditorFont{"Verdana", 14})) << "when it closes";

    for (const bool next : {false, true}) {
        SCOPED_TRACE(next);
        if (next)
            start("page.htm");
        EXPECT_EQ(app().applicationState.tempFolder, path("web"));
        EXPECT_EQ(app().applicationState.autosaveMinutes, 20);
        EXPECT_EQ(document().Font(), (EditorFont{"Verdana", 14}));
        EXPECT_EQ(app().mainWindow().fonts().face(), "Verdana");
        EXPECT_EQ(document().ColourAt(0), Colour{0x0080FF});
        EXPECT_EQ(item("mex").text(), "&R&&D");
    }
    app().commands.run("mex");
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(folder.filePath("ran")); }));
    click("bremove");
    EXPECT_EQ(control<QLineEdit>("tap").text(), "");
    EXPECT_EQ(control<QLineEdit>("tmenu").text(), "EXE");
    start();
    EXPECT_EQ(app().applicationState.programPath, "none");
}

TEST_F(SettingsDialogTest, StoredValuesThatNoListHasAreShown)
{
    writeSetting(app().settingsStore, keys::autosaveMinutes, "7");
    writeSetting(app().settingsStore, keys::fontFace, "DejaVu Sans Mono");
    writeSetting(app().settingsStore, keys::fontSize, "11");
    start();
    const auto shown = [&](const char *box) { return control<QComboBox>(box).currentText().toStdString(); };
    EXPECT_EQ(shown("boxtime") + shown("boxface") + shown("boxsize"), "7DejaVu Sans Mono11");
    EXPECT_EQ(control<QComboBox>("boxtime").itemText(5), "7") << "between 5 and 10";
}

TEST_F(SettingsDialogTest, OptionsWorkWithoutAFileToKeepThem)
{
    SettingsStoreQt().deleteSetting(settingsApplication);
    const auto file = QSettings(QSettings::IniFormat, QSettings::UserScope, "kevra", "kevra285").fileName();
    ASSERT_TRUE(QDir().mkpath(file + "/a folder stands there"));
    start();
    click("bfsono");
    EXPECT_FALSE(app().editorOptions.fsoMenu);
    const auto &notStored = control<QLabel>("lnotstored");
    EXPECT_FALSE(notStored.text().isEmpty());
    EXPECT_TRUE(QDir(file).removeRecursively());
    click("bnocoms");
    EXPECT_TRUE(notStored.text().isEmpty());
    end();
    EXPECT_EQ(readSetting(SettingsStoreQt(), rowOf(Option::FsoMenu).key), "no")
        << "written with the next one";
}

TEST_F(SettingsDialogTest, TabOrderFollowsTheLayout)
{
    constexpr int sameRow = 12; // pixels
    auto *const first = &control<QPushButton>("bfsoyes");
    QPoint last;
    int seen = 0;
    for (QWidget *at = first; at != first || seen == 0; at = at->nextInFocusChain()) {
        if (!(at->focusPolicy() & Qt::TabFocus) || !at->isVisibleTo(&dialog()))
            continue;
        const auto place = at->mapTo(&dialog(), at->rect().center());
        EXPECT_TRUE(
            place.y() > last.y() + sameRow || (place.x() > last.x() && place.y() > last.y() - sameRow))
            << at->objectName().toStdString();
        last = place;
        ++seen;
    }
    EXPECT_EQ(seen, 6 * 2 + 6 * 2 + 4 + 1) << "yes and no, entries, four lone buttons, close";
}

} // namespace
} // namespace kevra
