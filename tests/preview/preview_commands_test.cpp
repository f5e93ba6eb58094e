// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/preview_commands.h"

#include "fakes/document_fixture.h"
#include "fakes/preview_records.h"

#include <gmock/gmock.h>

namespace kevra {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string failedText
    = "Error loading page. If this is new work the Webpage Temp Folder may be invalid.";

/// Everything that happens to the windows and the browser, as one list of words.
class PreviewTest : public testing::Test,
                    protected DocumentFixture,
                    protected PreviewWindows,
                    protected BrowserControl {
protected:
    PreviewTest()
    {
        files.folders.insert("/tmp/pages");
        files.files["/app/kevrahelp.html"] = "help";
        files.files["/app/VBSInfo.html"] = "reference";
        application.tempFolder = "/tmp/pages";
        state.currentPath = "/site/index.htm";
        document.LoadText("<P>text");
    }

    bool navigate(const std::string &path, const PageScope &) override
    {
        busyWhileShown = state.busyLoadingOrSaving;
        happened.push_back("load " + path);
        return engine;
    }
    void follow(const std::string &address) override { happened.push_back("follow " + address); }
    void resizeTo(int, int) override { }
    void unload() override { happened.emplace_back("unload"); }
    void hideFind() override { happened.emplace_back("hide find"); }
    bool hideImageViewer() override { return viewerVisible; }
    void hideMain() override { happened.emplace_back("hide main"); }
    void showMain() override { happened.emplace_back("show main"); }
    void showBrowserWindow() override { happened.emplace_back("show browser"); }
    void hideBrowserWindow() override { happened.emplace_back("hide browser"); }
    void setLinkTarget(const std::string &text) override { turl = text; }

    [[nodiscard]] bool goes(
        const std::string &address, const std::string &path = {}, Frame frame = Frame::Main)
    {
        return commands.beforeNavigate({address, path, frame});
    }

    std::vector<std::string> happened;
    std::string turl = "(untouched)";
    bool engine = true;
    bool viewerVisible = false;
    bool busyWhileShown = false;
    FakePreviewRecords records;
    PreviewCommands commands{PreviewPorts{parts(), application, files, backups, records, messages, main,
        *this, *this, [](const std::string &name) { return "/app/" + name; }, "/home/me"}};
};

TEST_F(PreviewTest, WritesBesideTheDocumentAndShowsIt)
{
    viewerVisible = true;
    document.LoadText("caf\xC3\xA9\r\n");
    commands.ViewPage();
    EXPECT_EQ(files.files["/site/kevratemp.html"], "caf\xE9\r\n") << "in the bytes that Save writes";
    EXPECT_TRUE(files.hidden.contains("/site/kevratemp.html"));
    EXPECT_EQ(application.previewTempPath, "/site/kevratemp.html");
    EXPECT_THAT(happened, ElementsAre("hide find", "load /site/kevratemp.html", "hide main", "show browser"));
    EXPECT_EQ(main.information, "");
    EXPECT_TRUE(busyWhileShown);
    EXPECT_FALSE(state.busyLoadingOrSaving);

    document.LoadText("changed");
    commands.WritePreviewPage();
    EXPECT_EQ(files.files["/site/kevratemp.html"], "changed");
    happened.clear();
    commands.BackToText();
    EXPECT_THAT(happened, ElementsAre("hide browser", "show main", "unload"));
    EXPECT_FALSE(files.files.contains("/site/kevratemp.html"));
    EXPECT_EQ(application.previewTempPath, "") << "a file of that name is somebody else's from now on";
    EXPECT_THAT(messages.texts(), IsEmpty());
}

TEST_F(PreviewTest, ChoosesTheFolder)
{
    for (const auto &[current, page] :
        {std::pair("", "/tmp/pages/kevratemp.html"), {"/index.htm", "/kevratemp.html"},
            {"C:\\index.htm", "C:/kevratemp.html"}, {"/a b/c/index.htm", "/a b/c/kevratemp.html"},
            {"/a/b\\\\c.htm", "/a/kevratemp.html"}, {"/a\\\\/c.htm", "/a\\\\/kevratemp.html"}}) {
        state.currentPath = current;
        commands.ViewPage();
        EXPECT_EQ(application.previewTempPath, page);
        commands.BackToText();
    }
}

TEST_F(PreviewTest, SaysWhyThereIsNoPage)
{
    using P = PreviewCommands;
    using enum Icon;
    constexpr auto standard = "KEVRA Editor";
    constexpr auto missing = "Help File Missing";
    const auto reference
        = "The VBScript Info. file is missing. You should have VBSInfo.html in the KEVRA folder.";
    const auto noText = [this] { document.LoadText(""); };
    const auto noFiles = [this] { files.files.clear(); };
    const auto noEngine = [this] { engine = false; };
    const auto noRoom = [this] { files.refused["/site/kevratemp.html"] = WriteOutcome::DiskFull; };
    const auto noFolder = [this] {
        state.currentPath.clear();
        files.folders.clear();
    };
    struct {
        std::function<void()> before;
        void (P::*command)();
        std::string text;
        Icon icon = Critical;
        const char *title = standard;
    } const cases[] = {
        {noText, &P::ViewPage, "There isn't yet a page to view!"},
        {noText, &P::WritePreviewPage, "There isn't any page yet to view!", Information, "Error"},
        {noFolder, &P::ViewPage,
            "Error loading page. The setting for the Webpage Temp Folder may be invalid."},
        {noRoom, &P::ViewPage, failedText},
        {noEngine, &P::ViewPage, failedText},
        {noEngine, &P::ShowHelp, failedText},
        {[] {}, &P::refresh, "There doesn't seem to be a page to view!", Information, "Error"},
        {noFiles, &P::ShowHelp,
            "The help file is missing. You should have kevrahelp.html in the KEVRA folder.", Information,
            missing},
        {noFiles, &P::helpFromBrowser,
            "The Help file is missing. You should have kevrahelp.html in the KEVRA folder.", None, missing},
        {noFiles, &P::ShowScriptReference, reference, Information, missing},
        {noFiles, &P::referenceFromBrowser, reference, None, missing},
    };
    const auto startFiles = files;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.text);
        files = startFiles;
        engine = true;
        state.currentPath = "/site/index.htm";
        document.LoadText("<P>text");
        messages.shown.clear();
        happened.clear();
        application.helpShowing = application.vbsInfoShowing = false;
        c.before();
        (commands.*c.command)();
        EXPECT_EQ(messages.shown, (std::vector{Message{c.text, c.icon, Buttons::Ok, c.title}}));
        EXPECT_THAT(happened, testing::Not(testing::Contains("show browser")));
        EXPECT_FALSE(files.files.contains("/site/kevratemp.html"));
        EXPECT_FALSE(state.busyLoadingOrSaving);
    }
}

TEST_F(PreviewTest, ModeDecidesOnLinks)
{
    commands.ViewPage();
    EXPECT_TRUE(goes("file:///site/kevratemp.html", "/site/kevratemp.html")) << "asked for";
    EXPECT_TRUE(goes("file:///site/left.html", "/site/left.html", Frame::Sub)) << "part of the page";
    EXPECT_FALSE(goes("http://early/")) << "not what was asked for";
    EXPECT_EQ(turl, "http://early/");
    commands.navigationComplete();
    EXPECT_EQ(turl, "http://early/") << "kept in the preview";
    EXPECT_FALSE(goes("file:///site/kevratemp.html", "/site/kevratemp.html"));
    EXPECT_FALSE(goes("file:///site/left.html", "/site/left.html", Frame::Sub));
    EXPECT_EQ(turl, "file:///site/left.html");
    commands.linkClicked("mailto:a@b");
    EXPECT_EQ(turl, "mailto:a@b");
    commands.BackToText();
    EXPECT_FALSE(goes("http://after/")) << "nothing is asked for";

    commands.ShowScriptReference();
    commands.navigationComplete();
    turl = "as it was";
    commands.linkClicked("http://a/");
    EXPECT_FALSE(goes("http://a/"));
    EXPECT_EQ(turl, "as it was");

    commands.helpFromBrowser();
    EXPECT_TRUE(application.helpShowing && application.vbsInfoShowing);
    commands.navigationComplete();
    EXPECT_EQ(turl, "");
    EXPECT_TRUE(goes("http://a/"));
    happened.clear();
    commands.linkClicked("file:///app/kevrahelp.html#menus");
    commands.refresh();
    EXPECT_THAT(happened, ElementsAre("follow file:///app/kevrahelp.html#menus", "load /app/kevrahelp.html"));
    commands.BackToText();
    EXPECT_FALSE(application.helpShowing || application.vbsInfoShowing);

    commands.ViewPage();
    commands.navigationComplete();
    files.files.erase("/app/kevrahelp.html");
    commands.helpFromBrowser();
    EXPECT_FALSE(goes("https://out/")) << "the page in the missing help's place";
}

TEST_F(PreviewTest, DeadProcessGivesTheEditorBack)
{
    commands.ViewPage();
    happened.clear();
    commands.pageFailed();
    EXPECT_THAT(happened, ElementsAre("hide browser", "show main", "unload"));
    EXPECT_THAT(messages.texts(), ElementsAre(failedText));
    EXPECT_FALSE(files.files.contains("/site/kevratemp.html"));
}

TEST_F(PreviewTest, FirstPageOfAnEmptyBrowser)
{
    commands.browserFirstShown();
    files.files.erase("/app/kevrahelp.html");
    commands.BackToText();
    files.files["/app/template.html"] = "";
    commands.browserFirstShown();
    EXPECT_THAT(happened,
        ElementsAre(
            "load /app/kevrahelp.html", "hide browser", "show main", "unload", "load /app/template.html"));
}

} // namespace
} // namespace kevra
