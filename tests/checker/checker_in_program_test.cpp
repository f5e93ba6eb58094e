// SPDX-License-Identifier: GPL-3.0-or-later
// The checker in the whole program: from the menu and the toolbar, and at Return.
#include "app/main_menu_qt.h"
#include "fakes/program.h"

namespace kevra {
namespace {

using CheckerInProgram = ProgramTest;

TEST_F(CheckerInProgram, ShowsTheFaultyLineAndGoesBackToIt)
{
    put("long.vbs", QByteArray("a = 1\r\n").repeated(299) + "x=1\r\ny = 2\r\n");
    start("long.vbs");
    auto &document = this->document();
    auto &menus = app().mainWindow().menus();
    auto &information = find<QLineEdit>(app().mainWindow(), "tinfo");
    const auto caretShown = [&] {
        const auto line = document.GetLineFromChar(document.SelStart());
        return line == 299 && line >= document.FirstVisibleLine() && document.FirstVisibleLine() > 0;
    };

    menus.action("mrundebug")->trigger();
    EXPECT_EQ(information.text(), "Wrong spacing at equal sign - Line 300");
    EXPECT_EQ(document.ColourAt(document.SelStart() - 1), colours::fault);
    EXPECT_TRUE(caretShown());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);

    document.SetSelStart(0);
    QTest::mouseDClick(&information, Qt::LeftButton);
    EXPECT_TRUE(caretShown());

    const auto typeLine = [&] {
        document.SetSelStart(0);
        QTest::keyClicks(&document, "z=1");
        QTest::keyClick(&document, Qt::Key_Return);
    };
    menus.action("mnodebug")->trigger();
    typeLine();
    EXPECT_EQ(information.text(), "Wrong spacing at equal sign - Line 300") << "not asked for";
    menus.action("mdodebug")->trigger();
    typeLine();
    EXPECT_EQ(information.text(), "Wrong spacing at equal sign - Line 1");
    EXPECT_EQ(document.ColourAt(0), colours::fault);
}

} // namespace
} // namespace kevra
