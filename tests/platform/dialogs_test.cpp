// SPDX-License-Identifier: GPL-3.0-or-later
// The real message boxes and file dialogs, looked at and answered while they are open.
#include "platform/file_dialogs_qt.h"
#include "platform/messages_qt.h"

#include <QtTest/QtTest>

#include <gtest/gtest.h>

#include <functional>

namespace kevra {
namespace {

/// Runs `look` on the dialog that is open once the event loop turns.
template <typename Dialog> void whenOpen(std::function<void(Dialog &)> look)
{
    QTimer::singleShot(0, qApp, [look] {
        auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        look(*dialog);
    });
}

TEST(MessageBoxes, EachSetHasItsButtonsAndItsHarmlessAnswer)
{
    const struct {
        Buttons buttons;
        Icon icon;
        QMessageBox::Icon shown;
        QMessageBox::StandardButtons set;
        QMessageBox::StandardButton pressed;
        Answer answer;
        Answer escaped;
    } cases[] = {
        {Buttons::Ok, Icon::None, QMessageBox::NoIcon, QMessageBox::Ok, QMessageBox::Ok, Answer::Ok,
            Answer::Ok},
        {Buttons::OkCancel, Icon::Critical, QMessageBox::Critical, QMessageBox::Ok | QMessageBox::Cancel,
            QMessageBox::Ok, Answer::Ok, Answer::Cancel},
        {Buttons::YesNo, Icon::Question, QMessageBox::Question, QMessageBox::Yes | QMessageBox::No,
            QMessageBox::Yes, Answer::Yes, Answer::No},
        {Buttons::YesNoCancel, Icon::Information, QMessageBox::Information,
            QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::No, Answer::No,
            Answer::Cancel},
    };
    for (const auto &c : cases) {
        const Message message{"<b>a text</b>", c.icon, c.buttons, "A title"};
        whenOpen<QMessageBox>([&c](QMessageBox &box) {
            EXPECT_EQ(box.text(), "<b>a text</b>");
            EXPECT_EQ(box.textFormat(), Qt::PlainText) << "what the user typed is no markup";
            EXPECT_EQ(box.windowTitle(), "A title");
            EXPECT_EQ(box.icon(), c.shown);
            EXPECT_EQ(box.standardButtons(), c.set);
            QTest::mouseClick(box.button(c.pressed), Qt::LeftButton);
        });
        EXPECT_EQ(MessagesQt().show(message), c.answer);
        whenOpen<QMessageBox>([](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Escape); });
        EXPECT_EQ(MessagesQt().show(message), c.escaped);
    }
}

TEST(FileDialogs, SavingAsksNothingAndAddsNothing)
{
    const QTemporaryDir folder;
    const auto taken = folder.filePath("taken");
    QFile file(taken);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    const SaveRequest request{.title = "Save a File",
        .proposedName = taken.toStdString(),
        .filters = {{"Text files (*.txt;*.text)", "*.txt;*.text"}, {"All files (*.*)", "*.*"}},
        .filterIndex = 2};
    whenOpen<QFileDialog>([&](QFileDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Save a File");
        auto *types = dialog.findChild<QComboBox *>("fileTypeCombo");
        ASSERT_TRUE(types);
        EXPECT_EQ(types->itemText(0), "Text files (*.txt;*.text)") << "shown as it is written";
        EXPECT_EQ(types->currentIndex(), 1);
        EXPECT_TRUE(dialog.nameFilters()[1].endsWith("(*)"));
        EXPECT_EQ(dialog.selectedFiles(), QStringList(taken));
        QMetaObject::invokeMethod(&dialog, "accept"); // a question would stay open, and the test with it
    });
    const auto choice = FileDialogsQt().saveFile(request);
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->path, taken.toStdString());
    EXPECT_EQ(choice->filterIndex, 2);
}

TEST(FileDialogs, CancellingIsAnEmptyAnswer)
{
    const QTemporaryDir folder;
    const OpenRequest request{
        "Open a File", {{" (*.html;*.htm)", "*.html;*.htm"}}, folder.path().toStdString()};
    whenOpen<QFileDialog>([&](QFileDialog &dialog) {
        EXPECT_EQ(dialog.findChild<QComboBox *>("fileTypeCombo")->itemText(0), " (*.html;*.htm)");
        EXPECT_EQ(dialog.directory().absolutePath(), folder.path());
        EXPECT_EQ(dialog.windowTitle(), "Open a File");
        dialog.reject();
    });
    EXPECT_FALSE(FileDialogsQt().openFile(request));
    whenOpen<QFileDialog>([](QFileDialog &dialog) { dialog.reject(); });
    EXPECT_TRUE(FileDialogsQt().openFiles(request).empty());
    whenOpen<QColorDialog>([](QColorDialog &dialog) { dialog.reject(); });
    EXPECT_FALSE(ColourDialogQt().choose(Colour{0x112233}));
    whenOpen<QColorDialog>([](QColorDialog &dialog) { dialog.accept(); });
    EXPECT_EQ(ColourDialogQt().choose(Colour{0x112233}), Colour{0x112233});
}

} // namespace
} // namespace kevra
