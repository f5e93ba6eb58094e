// SPDX-License-Identifier: GPL-3.0-or-later
// Replacement in many files in the whole program, one of them open in the editor.
#include "encoding/line_ends.h"
#include "fakes/program.h"

#include <fstream>

namespace kevra {
namespace {

const std::string below(100, '\n');
const auto page = "<B>old</B>\n<P>\n" + below;
const auto replaced = "<I>old</I>\n<P>\n" + below;

class MultiInProgram : public ProgramTest {
protected:
    MultiInProgram()
    {
        QDir(folder.path()).mkdir("site");
        for (const auto *name : {"page.htm", "site/other.htm", "site/data.bin"})
            put(name, QByteArray::fromStdString(page));
        QFile::setPermissions(folder.filePath("site/other.htm"), QFile::ReadOwner | QFile::WriteOwner);
        start("page.htm");
        app().commands.run("mmulti");
        find<QLineEdit>("tmfind").setText("B");
        find<QLineEdit>("tmrep").setText("I");
        find<QCheckBox>("ckmcase").setChecked(true);
        find<QCheckBox>("ckmbackup").setChecked(true);
        drop(dialog(), {folder.filePath("page.htm")});
        const WhenModal<QFileDialog> choose([&](QFileDialog &dialog) {
            dialog.selectFile(folder.filePath("site"));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        click("bmfolder");
        EXPECT_TRUE(choose.came());
    }

    QWidget &dialog() { return app().window(SecondaryWindow::MultiFind); }
    template <typename T> T &find(const char *name) { return ProgramTest::find<T>(dialog(), name); }
    void click(const char *name) { ProgramTest::click(dialog(), name); }
    QString cell(int row, int column) { return find<QTreeWidget>("lmfiles").topLevelItem(row)->text(column); }
    std::string content(const char *name) { return app().files.read(path(name)).value_or("(missing)"); }
};

TEST_F(MultiInProgram, TheOpenDocumentTakesWhatWasWritten)
{
    ASSERT_EQ(find<QTreeWidget>("lmfiles").topLevelItemCount(), 2) << "of the folder only what fits";
    click("bmpreview");
    EXPECT_EQ(cell(0, 1) + cell(1, 1), "22");
    EXPECT_EQ(content("page.htm"), page);
    document().SetSelStart(15);
    document().SetFirstVisibleLine(9);
    click("bmreplace");
    EXPECT_EQ(document().SelStart(), 12) << "the line the caret was in";
    EXPECT_EQ(document().FirstVisibleLine(), 9);
    EXPECT_EQ(content("page.htm"), replaced);
    EXPECT_EQ(content("site/other.htm"), replaced);
    EXPECT_EQ(content("site/data.bin"), page);
    EXPECT_EQ(content("site/other.htm.bak"), page);
    EXPECT_FALSE(
        QFile::permissions(folder.filePath("site/other.htm.bak")) & (QFile::ReadGroup | QFile::ReadOther));
    EXPECT_EQ(document().Text(), toCrLf(replaced));
    EXPECT_EQ(document().ColourAt(1), colours::defaultCode);
    EXPECT_EQ(document().ColourAt(4), colours::black);
    EXPECT_FALSE(app().shown().document.state.unsaved);
}

TEST_F(MultiInProgram, AnOpenDocumentWithUnsavedChangesIsRefused)
{
    document().setFocus();
    QTest::keyClicks(document().viewport(), "B");
    const auto typed = document().Text();
    ASSERT_TRUE(app().shown().document.state.unsaved);
    QString shown;
    const WhenModal<QMessageBox> message([&](QMessageBox &box) {
        shown = box.text();
        box.accept();
    });
    click("bmpreview");
    EXPECT_TRUE(message.came());
    EXPECT_TRUE(shown.contains("page.htm") && shown.contains("unsaved changes")) << shown.toStdString();
    EXPECT_EQ(cell(0, 2), "has unsaved changes in the editor");
    click("bmreplace");
    EXPECT_EQ(content("page.htm"), page);
    EXPECT_EQ(content("site/other.htm"), replaced);
    EXPECT_EQ(document().Text(), typed);
}

TEST_F(MultiInProgram, ANameThatIsNoTextIsDroppedReplacedInAndOpened)
{
    const auto name = path("caf") + "\xe9.htm";
    std::ofstream(name) << page;
    dropUrls(
        dialog(), {QUrl::fromEncoded(QUrl::fromLocalFile(folder.filePath("caf")).toEncoded() + "%E9.htm")});
    ASSERT_TRUE(QTest::qWaitFor([this] { return find<QTreeWidget>("lmfiles").topLevelItemCount() == 3; }));
    click("bmpreview");
    click("bmreplace");
    EXPECT_EQ(app().files.read(name), replaced);
    auto &list = find<QTreeWidget>("lmfiles");
    list.setCurrentItem(list.topLevelItem(2));
    click("bmopen");
    EXPECT_EQ(app().shown().document.state.currentPath, name);
}

} // namespace
} // namespace kevra
