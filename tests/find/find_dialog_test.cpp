// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/editor_control_qt.h"
#include "fakes/document_state.h"
#include "fakes/messages.h"
#include "find/find_dialog.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

namespace kevra {
namespace {

TEST(FindDialogTest, FindsCountsAndReplacesAsItsBoxesSay)
{
    EditorControl document;
    FakeDocumentState state;
    FakeMessages messages;
    document.LoadText("one two\r\nOne two\r\n");
    FindDialog dialog({document, state}, messages);
    const auto click = [&](const char *name) { dialog.findChild<QPushButton *>(name)->click(); };
    dialog.suggest("one");
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    auto *text = dialog.findChild<QLineEdit *>("tfind");
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(document.Selection(), (TextRange{0, 3}));
    QTest::keyClick(text, Qt::Key_F3); // starts one character after the first hit
    EXPECT_EQ(document.Selection(), (TextRange{9, 12}));
    click("bnum");
    EXPECT_EQ(dialog.findChild<QLineEdit *>("tnum")->text(), "2");
    dialog.findChild<QLineEdit *>("trep")->setText("1");
    click("brepone");
    EXPECT_EQ(document.Text(), "one two\r\n1 two\r\n");
    dialog.findChild<QCheckBox *>("ckcase")->setChecked(true);
    dialog.findChild<QCheckBox *>("ckwhole")->setChecked(true);
    text->setText("two");
    click("brepall");
    EXPECT_EQ(document.Text(), "one 1\r\n1 1\r\n");
    document.undo();
    EXPECT_EQ(document.Text(), "one two\r\n1 two\r\n");
    for (const auto *wrong : {"T", "tw"}) {
        text->setText(wrong);
        click("bfind");
        EXPECT_EQ(messages.last(), "No occurences.");
        messages.shown.clear();
    }
}

} // namespace
} // namespace kevra
