// SPDX-License-Identifier: GPL-3.0-or-later
// The browser window over the real web engine, without a display.
#include "preview/browser_window.h"

#include "fakes/document_fixture.h"
#include "fakes/preview_records.h"
#include "preview/browser_control_qt.h"
#include "preview/message_box_reference_window.h"
#include "preview/preview_commands.h"
#include "storage/file_store_posix.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

#include <filesystem>

namespace kevra {
namespace {

QByteArray linkPage(const char *href, const char *more = "")
{
    constexpr auto page
        = "<title>here</title><a href='%1' %2 style='display:block;width:400px;height:200px'>go</a>";
    return QString(page).arg(href, more).toUtf8();
}

class BrowserTest : public testing::Test, protected DocumentFixture, private PreviewWindows {
protected:
    BrowserTest()
    {
        state.currentPath = folder.filePath("page.htm").toStdString();
        put("other.html", "<title>other</title>");
        control.setCommands(commands);
        QObject::connect(&window, &BrowserWindow::refreshAsked, &window, [this] { commands.refresh(); });
    }

    void put(const std::string &name, const QByteArray &bytes)
    {
        EXPECT_EQ(
            disk.write(folder.path().toStdString() + '/' + name, bytes.toStdString()), WriteOutcome::Ok);
    }
    /// Shows a page that says in its title when it is there, and waits for it.
    void view(const char *text)
    {
        document.LoadText(text);
        commands.ViewPage();
        waitForPage();
    }
    void waitForPage()
    {
        const auto isThere
            = [this] { return window.findChild<QWidget *>("pload")->isHidden() && !title().isEmpty(); };
        EXPECT_TRUE(QTest::qWaitFor(isThere, 20000));
    }
    [[nodiscard]] QWidget *page()
    {
        return window.findChild<QWidget *>("wb1")->findChild<QWidget *>(
            QString(), Qt::FindDirectChildrenOnly);
    }
    [[nodiscard]] QString title() { return page()->property("title").toString(); }
    [[nodiscard]] QUrl address() { return page()->property("url").toUrl(); }
    [[nodiscard]] QString target() { return window.findChild<QLineEdit *>("turl")->text(); }
    /// Clicks near the page's upper left corner, where every page here has its link, until something comes of
    /// it: a page that is not painted yet hears nothing.
    void click()
    {
        auto *inner = page()->focusProxy() ? page()->focusProxy() : page();
        const auto before = title();
        for (int tries = 0; tries < 10; ++tries) {
            QTest::mouseClick(inner, Qt::LeftButton, {}, {30, 30});
            if (QTest::qWaitFor([&] { return !target().isEmpty() || title() != before; }, 400))
                return;
        }
    }

    QTemporaryDir folder;
    FileStorePosix disk{folder.path().toStdString(), folder.path().toStdString()};
    DocumentFile fileOnDisk{disk, backups};
    BrowserWindow window;
    BrowserControlQt control{window};
    FakePreviewRecords records;
    PreviewCommands commands{PreviewPorts{DocumentParts{document, state, fileOnDisk, keeper}, application,
        disk, backups, records, messages, main, *this, control,
        [this](
            const std::string &name) { return folder.filePath(QString::fromStdString(name)).toStdString(); },
        "/home/somebody"}};

private:
    void hideFind() override { }
    bool hideImageViewer() override { return false; }
    void hideMain() override { }
    void showMain() override { }
    void showBrowserWindow() override { window.show(); }
    void hideBrowserWindow() override { window.hide(); }
    void setLinkTarget(const std::string &text) override
    {
        window.setLinkTarget(QString::fromStdString(text));
    }
};

TEST_F(BrowserTest, LinksOfThePreviewAreShownAndNotFollowed)
{
    const auto here = QUrl::fromLocalFile(folder.path()).toString() + '/';
    struct {
        const char *href;
        const char *more;
        QString shown;
    } const cases[] = {
        {"other.html", "", here + "other.html"},
        {"#part", "", here + "kevratemp.html#part"},
        {"other.html", "target=_blank", here + "other.html"},
        {"mailto:a@example.org", "", "mailto:a@example.org"},
        {"javascript:document.title=1", "", "javascript:document.title=1"},
        {"other.html", "download", here + "other.html"},
        {"http://127.0.0.1:9/", "", "http://127.0.0.1:9/"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(std::string(c.href) + c.more);
        view(linkPage(c.href, c.more));
        window.setLinkTarget("");
        click();
        EXPECT_EQ(target().toStdString(), c.shown.toStdString());
        EXPECT_EQ(title().toStdString(), "here");
        EXPECT_EQ(address().fileName(), "kevratemp.html");
    }
}

TEST_F(BrowserTest, HelpFollowsLinksAndRefreshGoesBackToIt)
{
    put("kevrahelp.html", linkPage("other.html"));
    commands.ShowHelp();
    waitForPage();
    click();
    waitForPage();
    EXPECT_EQ(title().toStdString(), "other");
    window.findChild<QAction *>("mrefresh")->trigger();
    waitForPage();
    EXPECT_EQ(title().toStdString(), "here");
}

TEST_F(BrowserTest, PageLoadsWithItsFramesImagesAndStyle)
{
    // A name need not be valid text, and these signs mean something in an address.
    const std::string odd = "Men\xFC #1%20?/";
    const auto place = folder.path().toStdString() + '/' + odd;
    std::filesystem::create_directory(place);
    state.currentPath = place + "page.htm";
    put(odd + "frame.html",
        "<body onload=\"parent.postMessage('F', '*')\"><img src=dot.gif onload=\"parent.postMessage('I', "
        "'*')\">");
    put(odd + "dot.gif", QByteArray::fromBase64("R0lGODlhAQABAIAAAAAAAP///yH5BAEAAAAALAAAAAABAAEAAAIBRAA7"));
    put(odd + "style.css", "body { margin-left: 77px }");
    view("<link rel=stylesheet href=style.css><script>seen = ''; onmessage = e => { seen += e.data;"
         "document.title = [...seen].sort().join('') + getComputedStyle(document.body).marginLeft }</script>"
         "<body><iframe src=frame.html></iframe>");
    EXPECT_TRUE(QTest::qWaitFor([this] { return title() == "FI77px"; }, 10000)) << title().toStdString();
    std::filesystem::remove_all(place); // by its bytes, which the temporary folder does not know
}

TEST_F(BrowserTest, ShowsTheTextAsItIsNowAndALinkInThePagesPlaceStays)
{
    const auto page = folder.filePath("kevratemp.html");
    ASSERT_TRUE(QFile::link("nowhere.html", page));
    view("<title>here</title>");
    EXPECT_EQ(title().toStdString(), "here");
    EXPECT_FALSE(QFileInfo(page).isSymLink());
    document.LoadText("<title>changed</title>");
    commands.WritePreviewPage();
    waitForPage();
    EXPECT_EQ(title().toStdString(), "changed");
    commands.BackToText();
    EXPECT_TRUE(QFileInfo(page).isSymLink());
    EXPECT_FALSE(QFileInfo::exists(folder.filePath("nowhere.html")));
}

TEST(BrowserWindow, SizesTheViewAndClosingAsksToQuit)
{
    BrowserWindow window;
    window.show();
    int asked = 0;
    QObject::connect(&window, &BrowserWindow::sizeAsked, &window, &BrowserWindow::setPageSize);
    QObject::connect(&window, &BrowserWindow::quitAsked, &window, [&] { ++asked; });
    auto *page = window.findChild<QWidget *>("wb1");
    window.findChild<QAction *>("m17")->trigger();
    EXPECT_EQ(page->size(), QSize(1024, 658));
    window.findChild<QAction *>("mreset")->trigger();
    EXPECT_TRUE(window.isMaximized());
    EXPECT_NE(page->size(), QSize(1024, 658));
    window.close();
    window.findChild<QPushButton *>("bexit")->click();
    window.findChild<QAction *>("mexit")->trigger();
    EXPECT_EQ(asked, 3);
    EXPECT_TRUE(window.isVisible());
}

} // namespace
} // namespace kevra
