// SPDX-License-Identifier: GPL-3.0-or-later
// Viewer, colour finder and dropped pictures in the whole program, by the buttons people press.
#include "fakes/program.h"
#include "images/image_viewer_window.h"

namespace kevra {
namespace {

class ImagesInProgram : public ProgramTest {
protected:
    ImagesInProgram()
    {
        start();
        QImage picture(120, 80, QImage::Format_RGB32);
        picture.fill(qRgb(255, 128, 0));
        EXPECT_TRUE(picture.save(folder.filePath("sea.jpg"), nullptr, 100));
        EXPECT_TRUE(picture.save(folder.filePath("SEA.JPG")));
        EXPECT_TRUE(picture.save(folder.filePath("icon.bmp")));
        EXPECT_TRUE(picture.save(folder.filePath("photo.jpeg")));
        put("broken.bmp", "BM");
    }

    template <typename T> T &find(const char *name) { return ProgramTest::find<T>(app().mainWindow(), name); }
    void click(const char *name) { ProgramTest::click(app().mainWindow(), name); }
    QString clipboard() { return QGuiApplication::clipboard()->text(); }
    /// Runs a command that asks for a picture, and chooses one.
    void view(const char *name, const char *command = "msample")
    {
        const WhenModal<QFileDialog> choose([&](QFileDialog &dialog) {
            dialog.selectFile(folder.filePath(name));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        app().commands.run(command);
        EXPECT_TRUE(choose.came());
    }
    void pickColour(const char *button, QColor colour)
    {
        const WhenModal<QColorDialog> choose([&](QColorDialog &dialog) {
            dialog.setCurrentColor(colour);
            dialog.accept();
        });
        click(button);
        EXPECT_TRUE(choose.came());
    }
};

TEST_F(ImagesInProgram, TheViewersPanelDescribesTheViewedPicture)
{
    view("sea.jpg");
    auto &viewer = dynamic_cast<ImageViewerWindow &>(app().window(SecondaryWindow::ImageViewer));
    EXPECT_TRUE(viewer.isVisible() && find<QFrame>("fr1").isVisible());
    EXPECT_EQ(find<QLineEdit>("tsize").text(), "120 x 80");
    QTest::mouseClick(&viewer.picture(), Qt::LeftButton, {}, {60, 40});
    click("bbitcol");
    const QColor sampled(clipboard().mid(1, 7));
    EXPECT_NEAR(sampled.red(), 255, 3);
    EXPECT_NEAR(sampled.green(), 128, 3);
    EXPECT_EQ(clipboard(), "\"" + find<QLineEdit>("thex").text() + "\"");
    EXPECT_EQ(find<QFrame>("picsmall").palette().color(QPalette::Window), sampled);

    QTest::mouseClick(&viewer.picture(), Qt::LeftButton, {}, {60, 80}); // below the picture
    click("bbitcol");
    EXPECT_EQ(QColor(clipboard().mid(1, 7)), sampled);

    for (const auto *name : {"broken.bmp", "photo.jpeg"}) {
        SCOPED_TRACE(name);
        view(name);
        EXPECT_TRUE(viewer.isVisible() && find<QFrame>("fr1").isVisible());
        EXPECT_EQ(viewer.picture().picture().size(), QSize(120, 80));
        EXPECT_TRUE(find<QLineEdit>("tinfo").text().startsWith("sea.jpg - "));
        click("bspec");
        EXPECT_EQ(clipboard(), "<IMG SRC=\"sea.jpg\" WIDTH=120 HEIGHT=80 ALIGN= HSPACE= VSPACE=>");
    }
    view("icon.bmp");
    EXPECT_FALSE(find<QPushButton>("bspec").isEnabled());
    viewer.close();
    EXPECT_FALSE(viewer.isVisible() || find<QFrame>("fr1").isVisible());
    EXPECT_TRUE(viewer.picture().picture().isNull());
    EXPECT_EQ(find<QLineEdit>("tinfo").text(), "");
    view("photo.jpeg");
    EXPECT_FALSE(viewer.isVisible() || find<QFrame>("fr1").isVisible());
}

TEST_F(ImagesInProgram, TheColourFinderShowsTypedAndChosenColours)
{
    app().commands.run("mcolorfind");
    ASSERT_TRUE(find<QFrame>("frcol").isVisible());
    const struct {
        const char *typed; ///< empty: the colour is only chosen
        QColor chosen; ///< black counts as nothing chosen
        const char *code;
    } cases[] = {
        {"ff8000", Qt::black, "\"#ff8000\""}, // as it was typed
        {"", Qt::black, "\"#ff8000\""},
        {"ff8000", Qt::red, "\"#FF0000\""},
        {"000000", Qt::black, "\"#000000\""},
        {"", QColor(0x12, 0xAB, 0x34), "\"#12AB34\""},
    };
    for (const auto &c : cases) {
        find<QLineEdit>("tenter").setText(c.typed);
        pickColour(*c.typed ? "bshowhex" : "bchoosecol", c.chosen);
        click("bclip");
        EXPECT_EQ(clipboard(), c.code);
    }
    EXPECT_EQ(find<QFrame>("pcol").palette().color(QPalette::Window), QColor(0x12, 0xAB, 0x34));
    for (const auto &[typed, message] : {std::pair("FF80000", "The hex code must be 6 characters."),
             {"#FF800", "Error in hex code. All characters must be 0 thru 9 or A thru F."}}) {
        const WhenModal<QMessageBox> notice([&, message = message](QMessageBox &box) {
            EXPECT_EQ(box.text(), message);
            box.accept();
        });
        find<QLineEdit>("tenter").setText(typed);
        click("bshowhex");
        EXPECT_TRUE(notice.came());
        click("bclip");
        EXPECT_EQ(clipboard(), "\"#12AB34\"") << "as it was";
    }
    find<QPushButton>("bclosecol").setFocus();
    click("bclosecol");
    EXPECT_FALSE(find<QFrame>("frcol").isVisible());
    EXPECT_EQ(app().mainWindow().focusWidget(), &document()) << "what is typed next is for the text";
}

TEST_F(ImagesInProgram, TagsGoOntoTheClipboard)
{
    const struct {
        const char *command;
        const char *picture;
        const char *tag; ///< empty: the file is not of a type for web pages
    } cases[] = {
        {"bim", "SEA.JPG", "<IMG SRC=\"SEA.JPG\" WIDTH=120 HEIGHT=80 ALIGN= HSPACE= VSPACE=>"},
        {"bai", "sea.jpg",
            "<A HREF=><IMG SRC=\"sea.jpg\" WIDTH=120 HEIGHT=80 ALIGN= HSPACE= VSPACE= ALT=></A>"},
        {"bbi", "photo.jpeg", "<BODY BACKGROUND=\"photo.jpeg\" TEXT= LINK= ALINK= VLINK=>"},
        {"bim", "photo.jpeg", ""},
        {"bai", "icon.bmp", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.command);
        QGuiApplication::clipboard()->clear();
        const WhenModal<QMessageBox> notice([](QMessageBox &box) {
            EXPECT_EQ(box.windowTitle(), "Wrong file type");
            EXPECT_EQ(box.text(),
                "As this function auto-inserts code for webpage images, it only accepts .jpg and .gif "
                "files.");
            box.accept();
        });
        find<QLineEdit>("tinfo").setFocus();
        view(c.picture, c.command);
        EXPECT_EQ(clipboard(), c.tag);
        EXPECT_EQ(notice.came(), clipboard().isEmpty());
        EXPECT_EQ(app().mainWindow().focusWidget() == &document(), !notice.came())
            << "where the tag is pasted";
    }
}

TEST_F(ImagesInProgram, ADroppedPictureGivesItsTagAndLeavesTheDocument)
{
    document().LoadText("typed");
    drop(app().mainWindow(), {folder.filePath("sea.jpg")});
    EXPECT_EQ(clipboard(), "<IMG SRC=\"sea.jpg\" WIDTH=120 HEIGHT=80 ALIGN= HSPACE= VSPACE=>");
    EXPECT_EQ(document().Text(), "typed");
}

} // namespace
} // namespace kevra
