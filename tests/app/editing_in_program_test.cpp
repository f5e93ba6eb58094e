// SPDX-License-Identifier: GPL-3.0-or-later
// What the Edit menu, the menu on the text and the toolbar do to the text of the running program.
#include "editor/editor_control_qt.h"
#include "fakes/program.h"

#include <gtest/gtest.h>

#include <tuple>

namespace kevra {
namespace {

using EditingInProgram = ProgramTest;

TEST_F(EditingInProgram, MenusAndToolbarEditTheText)
{
    const std::tuple<const char *, const char *, QString> steps[] // item or button, text, clipboard
        = {{"mselall", "<b>x", "old"}, {"mcopy", "<b>x", "<b>x"}, {"mcut", "", "<b>x"},
            {"mundo", "<b>x", "<b>x"}, {"mredo", "", "<b>x"}, {"mpaste", "<b>x", "<b>x"},
            {"poppaste", "<b>x<b>x", "<b>x"}, {"popall", "<b>x<b>x", "<b>x"},
            {"popcopy", "<b>x<b>x", "<b>x<b>x"}, {"popundo", "<b>x", "<b>x<b>x"}, {"mclear", "", "<b>x<b>x"},
            {"mundo", "<b>x", "<b>x<b>x"}, {"popall", "<b>x", "<b>x<b>x"}, {"copyb", "<b>x", "<b>x"},
            {"pasteb", "<b>x", "<b>x"}, {"popall", "<b>x", "<b>x"}, {"cutb", "", "<b>x"},
            {"pasteb", "<b>x", "<b>x"}, {"popall", "<b>x", "<b>x"}, {"popcut", "", "<b>x"}};
    start();
    QTest::keyClicks(&document(), "<b>x");
    EXPECT_TRUE(app().shown().document.state.unsaved);
    QGuiApplication::clipboard()->setText("old");
    for (const auto &[item, text, clipboard] : steps) {
        SCOPED_TRACE(item);
        if (auto *action = app().mainWindow().findChild<QAction *>(item))
            action->trigger();
        else
            click<QToolButton>(app().mainWindow(), item);
        EXPECT_EQ(document().Text(), text);
        EXPECT_EQ(QGuiApplication::clipboard()->text(), clipboard);
    }
}

TEST_F(EditingInProgram, AnotherFontKeepsTheColours)
{
    put("page.htm", "<b>x");
    start("page.htm");
    find<QComboBox>(app().mainWindow(), "comface").setCurrentIndex(2);
    EXPECT_EQ(document().ColourAt(1), colours::defaultCode);
    EXPECT_EQ(document().ColourAt(3), colours::black);
}

TEST_F(EditingInProgram, F3GoesOnAndShiftF3Back)
{
    start();
    auto &window = app().mainWindow();
    document().LoadText("ab ab ab");
    document().Select({0, 2});
    app().commands.run("mfind");
    app().window(SecondaryWindow::Find).close();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (const auto &[modifier, hit] : {std::pair(Qt::NoModifier, TextRange{0, 2}), {Qt::NoModifier, {3, 5}},
             {Qt::NoModifier, {6, 8}}, {Qt::ShiftModifier, {3, 5}}}) {
        QTest::keyClick(&window, Qt::Key_F3, modifier);
        EXPECT_EQ(document().Selection(), hit);
    }
}

TEST_F(EditingInProgram, EachPanelLeadsToTheOtherOfItsTools)
{
    const std::tuple<const char *, const char *, const char *> switches[] // button, hidden, shown
        = {{"bsw1", "Frame1", "Frame2"}, {"bsw2", "Frame2", "Frame1"}, {"bscrsw1", "frscript1", "frscript2"},
            {"bscrsw2", "frscript2", "frscript1"}};
    start();
    auto &window = app().mainWindow();
    for (const auto &[button, hidden, shown] : switches) {
        SCOPED_TRACE(button);
        app().commands.run(QString(button).startsWith("bscr") ? "mscrshow" : "mwebback");
        if (!find<QWidget>(window, hidden).isVisible())
            app().commands.run(QString(button).startsWith("bscr") ? "bscrsw1" : "bsw1");
        click<QToolButton>(window, button);
        EXPECT_FALSE(find<QWidget>(window, hidden).isVisible());
        EXPECT_TRUE(find<QWidget>(window, shown).isVisible());
    }
}

} // namespace
} // namespace kevra
