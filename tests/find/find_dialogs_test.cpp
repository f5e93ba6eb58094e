// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/editor_control_qt.h"
#include "fakes/dialogs.h"
#include "fakes/messages.h"
#include "files/file_store_qt.h"
#include "find/find_dialog.h"
#include "find/multi_dialog.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

namespace kevra {
namespace {

TEST(FindDialogTest, FindsReplacesCountsAndHides)
{
    EditorControl document;
    DocumentState state;
    FakeMessages messages;
    document.LoadText("one two\r\nOne two\r\n");
    FindDialog dialog(document, state, messages);
    const auto click = [&](const char *name) { dialog.findChild<QPushButton *>(name)->click(); };
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    EXPECT_FALSE(dialog.isModal());
    auto *text = dialog.findChild<QLineEdit *>("tfind");
    QTest::keyClicks(text, "one");
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(document.Selection(), (TextRange{0, 3}));
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClick(text, Qt::Key_F3); // begins one behind the first hit
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
    text->setText("T");
    click("bfind");
    EXPECT_EQ(messages.texts(), std::vector<std::string>{"No occurences."});
    QTest::keyClick(text, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

class NoDocument : public OpenDocument {
public:
    bool hasUnsavedChangesOf(const std::string &) const override { return false; }
    void fileWritten(const std::string &) override { }
};

TEST(MultiDialogTest, ReplacesInAFolder)
{
    QTemporaryDir folder;
    const auto write = [&](const QString &name, const char *bytes) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
    };
    QDir(folder.path()).mkdir("sub");
    write("a.html", "old\n");
    write("sub/b.html", "old old\n");
    write("c.dat", "old\n");
    QFile::setPermissions(folder.filePath("a.html"), QFile::ReadOwner | QFile::WriteOwner);
    FileStoreQt files(folder.filePath("state").toStdString());
    NoDocument open;
    FakeMessages messages;
    FakeFileDialogs dialogs;
    dialogs.choices = {folder.path().toStdString()};
    MultiDialog dialog(files, open, messages, dialogs);
    dialog.show();
    const auto click = [&](const char *name) { dialog.findChild<QPushButton *>(name)->click(); };
    dialog.findChild<QLineEdit *>("tmfind")->setText("old");
    dialog.findChild<QLineEdit *>("tmrep")->setText("new");
    dialog.findChild<QCheckBox *>("ckmbackup")->setChecked(true);
    click("bmfolder");
    auto *list = dialog.findChild<QTreeWidget *>("lmfiles");
    ASSERT_EQ(list->topLevelItemCount(), 2);
    click("bmpreview");
    EXPECT_EQ(list->topLevelItem(1)->text(1), "2");
    click("bmreplace");
    EXPECT_EQ(list->topLevelItem(1)->text(2), "replaced");
    EXPECT_EQ(files.read(folder.filePath("sub/b.html").toStdString()), "new new\n");
    EXPECT_EQ(files.read(folder.filePath("c.dat").toStdString()), "old\n");
    EXPECT_EQ(files.read(folder.filePath("a.html.bak").toStdString()), "old\n");
    EXPECT_FALSE(QFile::permissions(folder.filePath("a.html.bak")) & (QFile::ReadGroup | QFile::ReadOther));
    EXPECT_TRUE(messages.shown.empty());
}

} // namespace
} // namespace kevra
