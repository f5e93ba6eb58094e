// SPDX-License-Identifier: GPL-3.0-or-later
// The real message boxes and file dialogs, inspected and answered while they are open.
#include "desktop/file_dialogs_qt.h"
#include "desktop/messages_qt.h"
#include "fakes/modal.h"

namespace kevra {
namespace {

TEST(MessageBoxes, EachSetHasItsButtonsAndItsHarmlessAnswer)
{
    using Box = QMessageBox;
    const struct {
        Buttons buttons;
        Icon icon;
        Box::Icon shown;
        Box::StandardButtons set;
        Box::StandardButton pressed;
        Answer answer;
        Answer escaped;
    } cases[] = {
        {Buttons::Ok, Icon::None, Box::NoIcon, Box::Ok, Box::Ok, Answer::Ok, Answer::Ok},
        {Buttons::OkCancel, Icon::Critical, Box::Critical, Box::Ok | Box::Cancel, Box::Ok, Answer::Ok,
            Answer::Cancel},
        {Buttons::YesNo, Icon::Question, Box::Question, Box::Yes | Box::No, Box::Yes, Answer::Yes,
            Answer::No},
        {Buttons::YesNoCancel, Icon::Information, Box::Information, Box::Yes | Box::No | Box::Cancel, Box::No,
            Answer::No, Answer::Cancel},
    };
    for (const auto &c : cases) {
        const Message message{"<b>a text</b>", c.icon, c.buttons, "A title"};
        {
            const WhenModal<Box> press([&c](Box &box) {
                EXPECT_EQ(box.text(), "<b>a text</b>");
                EXPECT_EQ(box.textFormat(), Qt::PlainText) << "what the user typed is no markup";
                EXPECT_EQ(box.windowTitle(), "A title");
                EXPECT_EQ(box.icon(), c.shown);
                EXPECT_EQ(box.standardButtons(), c.set);
                QTest::mouseClick(box.button(c.pressed), Qt::LeftButton);
            });
            EXPECT_EQ(MessagesQt().show(message), c.answer);
        }
        const WhenModal<Box> escape([](Box &box) { QTest::keyClick(&box, Qt::Key_Escape); });
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
    const WhenModal<QFileDialog> accept([&](QFileDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Save a File");
        auto *types = dialog.findChild<QComboBox *>("fileTypeCombo");
        ASSERT_TRUE(types);
        EXPECT_EQ(types->itemText(0), "Text files (*.txt;*.text)") << "shown as it is written";
        EXPECT_EQ(types->currentIndex(), 1);
        EXPECT_TRUE(dialog.nameFilters()[1].endsWith("(*)"));
        EXPECT_EQ(dialog.selectedFiles(), QStringList(taken));
        QMetaObject::invokeMethod(&dialog, "accept"); // a question would block the test
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
    for (const bool several : {false, true}) {
        const WhenModal<QFileDialog> cancel([&](QFileDialog &dialog) {
            EXPECT_EQ(dialog.findChild<QComboBox *>("fileTypeCombo")->itemText(0), " (*.html;*.htm)");
            EXPECT_EQ(dialog.directory().absolutePath(), folder.path());
            EXPECT_EQ(dialog.windowTitle(), "Open a File");
            dialog.reject();
        });
        EXPECT_TRUE(
            several ? FileDialogsQt().openFiles(request).empty() : !FileDialogsQt().openFile(request));
    }
    for (const auto &chosen : {std::optional<Colour>(), std::optional(Colour{0x112233})}) {
        const WhenModal<QColorDialog> close(
            [&](QColorDialog &dialog) { chosen ? dialog.accept() : dialog.reject(); });
        EXPECT_EQ(ColourDialogQt().choose(Colour{0x112233}), chosen);
    }
}

} // namespace
} // namespace kevra
