// SPDX-License-Identifier: GPL-3.0-or-later
// Replacement in many files in the whole program, one of them open in the editor.
#include "app/application_qt.h"
#include "fakes/modal.h"
#include "settings/setting_access.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

class MultiInProgram : public testing::Test {
protected:
    MultiInProgram()
    {
        SettingsStoreQt().deleteSetting(settingsApplication);
        writeSetting(app.store, keys::firstStart, "no");
        QDir(folder.path()).mkdir("site");
        for (const auto *name : {"page.htm", "site/other.htm", "site/data.bin"}) {
            QFile page(folder.filePath(name));
            EXPECT_TRUE(page.open(QFile::WriteOnly));
            page.write("<B>old</B>\n<P>\n");
        }
        app.start(folder.filePath("page.htm").toStdString());
        app.commands.run("mmulti");
        find<QLineEdit>("tmfind").setText("B");
        find<QLineEdit>("tmrep").setText("I");
        find<QCheckBox>("ckmcase").setChecked(true);
        drop(dialog(), {folder.filePath("page.htm"), folder.filePath("site")});
        QApplication::processEvents();
    }
    ~MultiInProgram() override { SettingsStoreQt().deleteSetting(settingsApplication); }

    QWidget &dialog() { return app.window(SecondaryWindow::MultiFind); }
    template <typename T> T &find(const char *name) { return *dialog().findChild<T *>(name); }
    QString cell(int row, int column) { return find<QTreeWidget>("lmfiles").topLevelItem(row)->text(column); }
    std::string content(const char *name) { return *app.files.read(folder.filePath(name).toStdString()); }
    EditorControl &document() { return app.mainWindow().document(); }

    QTemporaryDir folder;
    Application app{{.portable = false, .autosave = folder.path().toStdString()}};
};

TEST_F(MultiInProgram, TheOpenDocumentTakesWhatWasWritten)
{
    ASSERT_EQ(find<QTreeWidget>("lmfiles").topLevelItemCount(), 2) << "of the folder only what fits";
    find<QPushButton>("bmpreview").click();
    EXPECT_EQ(cell(0, 1) + cell(1, 1), "22");
    EXPECT_EQ(content("page.htm"), "<B>old</B>\n<P>\n");
    document().SetSelStart(15);
    find<QPushButton>("bmreplace").click();
    EXPECT_EQ(document().SelStart(), 12) << "the line the caret was in";
    EXPECT_EQ(content("page.htm"), "<I>old</I>\n<P>\n");
    EXPECT_EQ(content("site/other.htm"), "<I>old</I>\n<P>\n");
    EXPECT_EQ(content("site/data.bin"), "<B>old</B>\n<P>\n");
    EXPECT_EQ(document().Text(), "<I>old</I>\r\n<P>\r\n");
    EXPECT_EQ(document().ColourAt(1), colours::defaultCode);
    EXPECT_EQ(document().ColourAt(4), colours::black);
    EXPECT_FALSE(app.document.unsaved);
}

TEST_F(MultiInProgram, AnOpenDocumentWithUnsavedChangesIsRefused)
{
    document().setFocus();
    QTest::keyClicks(document().viewport(), "B");
    const auto typed = document().Text();
    ASSERT_NE(typed, "<B>old</B>\r\n<P>\r\n");
    QString told;
    const WhenModal<QMessageBox> message([&](QMessageBox &box) {
        told = box.text();
        box.accept();
    });
    find<QPushButton>("bmpreview").click();
    EXPECT_TRUE(message.came());
    EXPECT_TRUE(told.contains("page.htm") && told.contains("unsaved changes")) << told.toStdString();
    EXPECT_EQ(cell(0, 2), "has unsaved changes in the editor");
    find<QPushButton>("bmreplace").click();
    EXPECT_EQ(content("page.htm"), "<B>old</B>\n<P>\n");
    EXPECT_EQ(content("site/other.htm"), "<I>old</I>\n<P>\n");
    EXPECT_EQ(document().Text(), typed);
}

} // namespace
} // namespace kevra
