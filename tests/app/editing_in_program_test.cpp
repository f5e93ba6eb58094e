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
    document().LoadText("<b>x");
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

} // namespace
} // namespace kevra
