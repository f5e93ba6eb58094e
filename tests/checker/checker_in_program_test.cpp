// SPDX-License-Identifier: GPL-3.0-or-later
// The checker in the whole program: from the menu and the toolbar, and at Return.
#include "app/application_qt.h"
#include "app/main_menu_qt.h"

#include "settings/setting_access.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

namespace kevra {
namespace {

TEST(CheckerInProgram, ShowsTheFaultyLineAndGoesBackToIt)
{
    const QTemporaryDir folder;
    QFile script(folder.filePath("long.vbs"));
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write(QByteArray("a = 1\r\n").repeated(299) + "x=1\r\ny = 2\r\n");
    script.close();
    Application app({.portable = false, .autosave = folder.path().toStdString()});
    writeSetting(app.store, keys::firstStart, "no");
    app.start(script.fileName().toStdString());
    auto &document = app.mainWindow().document();
    auto &information = *app.mainWindow().findChild<QLineEdit *>("tinfo");
    const auto caretShown = [&] {
        const auto line = document.GetLineFromChar(document.SelStart());
        return line == 299 && line >= document.FirstVisibleLine() && document.FirstVisibleLine() > 0;
    };

    app.mainWindow().menus().action("mrundebug")->trigger();
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
    app.mainWindow().menus().action("mnodebug")->trigger();
    typeLine();
    EXPECT_EQ(information.text(), "Wrong spacing at equal sign - Line 300") << "not asked for";
    app.mainWindow().menus().action("mdodebug")->trigger();
    typeLine();
    EXPECT_EQ(information.text(), "Wrong spacing at equal sign - Line 1");
    EXPECT_EQ(document.ColourAt(0), colours::fault);
}

} // namespace
} // namespace kevra
