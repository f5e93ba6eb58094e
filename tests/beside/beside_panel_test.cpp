// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/beside_panel.h"
#include "beside/dock_width_qt.h"

#include <QtTest/QTest>
#include <gtest/gtest.h>

namespace kevra {
namespace {

TEST(BesidePanel, KeepsNotesApartAndShowsThemAsTheyAreWritten)
{
    BesidePanel panel(nullptr);
    const auto *note = panel.findChild<QLabel *>("lbeside");
    panel.showNote(BesideNote::Sandbox, "no sandbox");
    const int width = panel.minimumSizeHint().width();
    panel.showNote(BesideNote::State, "busy");
    panel.showNote(BesideNote::Alert, "<b>a</b>\n<img src='/a.png'>" + QString(200, 'x'));
    EXPECT_EQ(note->text(), "busy\n<b>a</b> <img src='/a.png'>" + QString(200, 'x') + "\nno sandbox");
    EXPECT_EQ(note->textFormat(), Qt::PlainText);
    EXPECT_EQ(panel.minimumSizeHint().width(), width);
    panel.showNote(BesideNote::State, {});
    panel.showNote(BesideNote::Alert, {});
    EXPECT_EQ(note->text(), "no sandbox");
}

TEST(BesidePanel, AppliesToThePageWhatWasChosenBefore)
{
    BesidePanel panel(nullptr);
    panel.zoomBy(1);
    double scale = 0;
    QObject::connect(&panel, &BesidePanel::scaleChanged, [&](double now) { scale = now; });
    panel.setPageWidget(new QWidget(&panel.frame()));
    EXPECT_GT(scale, 1);
}

TEST(DockWidth, LeavesTheTextItsRoomAndComesBackToTheWidthChosen)
{
    QMainWindow window;
    window.setCentralWidget(new QWidget);
    QDockWidget dock;
    dock.setWidget(new QWidget);
    window.addDockWidget(Qt::RightDockWidgetArea, &dock);
    DockWidth width(window, dock, 700);
    int chosen = 0;
    QObject::connect(&width, &DockWidth::chosen, [&](int now) { chosen = now; });
    window.resize(1200, 600);
    window.show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return dock.width() == 700; }));
    window.resize(600, 600);
    EXPECT_TRUE(QTest::qWaitFor([&] { return dock.width() == 400; }));
    window.resize(1200, 600);
    EXPECT_TRUE(QTest::qWaitFor([&] { return dock.width() == 700; }));
    QTest::qWait(700); // longer than a width takes to settle
    EXPECT_EQ(chosen, 0) << "the window's doing, not the user's";
    window.resizeDocks({&dock}, {300}, Qt::Horizontal);
    EXPECT_TRUE(QTest::qWaitFor([&] { return chosen == 300; }));
}

} // namespace
} // namespace kevra
