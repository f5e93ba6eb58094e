// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/desktop.h"
#include "fakes/document_desk.h"
#include "images/colour_code.h"
#include "images/colour_finder_commands.h"
#include "images/image_commands.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

TEST(ColourCode, ExchangesRedAndBlue)
{
    struct {
        std::uint32_t value;
        const char *code;
    } const cases[] = {
        {0, "#000000"}, {0xFF, "#FF0000"}, {0x0080FF, "#FF8000"}, {0x010203, "#030201"},
        {0xFFFFFF, "#FFFFFF"},
        {0x80000012, "#12008012"}, // a colour of the system: places 5 and 6 all the same
    };
    for (const auto &c : cases)
        EXPECT_EQ(ColourToHtml(Colour{c.value}), c.code);
    EXPECT_EQ(colourOfHex("ff8000"), Colour{0x0080FF});
    for (const auto *wrong : {"", "ff800", "#ff800", "ff80000", "-f8000", "+f8000", " f8000", "0xff80"})
        EXPECT_FALSE(colourOfHex(wrong)) << wrong;
}

TEST(ViewerPlan, CropsWhatIsLargerThanItsShareOfTheScreen)
{
    constexpr std::string_view cropped = "VIEW IMAGE - Note: Image has been cropped to fit screen.";
    // 85 percent of 15000 are 12750: 825 pixels and the title bar. 90 percent of 15000 are 900 pixels.
    struct {
        PictureSize picture;
        int screenWidth;
        int screenHeight;
        std::int64_t width;
        std::int64_t height;
        std::string_view caption;
    } const cases[] = {
        {{900, 825}, 15000, 15000, 13500, 12750, "VIEW IMAGE"},
        {{900, 825}, 15000, 14999, 13500, 12749, cropped},
        {{900, 825}, 14999, 15000, 13499, 12750, cropped},
        {{901, 826}, 15000, 15000, 13500, 12750, cropped},
        {{1, 1}, 15000, 15000, 15, 390, "VIEW IMAGE"},
    };
    for (const auto &c : cases) {
        const auto plan = viewerPlan(c.picture, c.screenWidth, c.screenHeight);
        EXPECT_EQ(plan.width, c.width);
        EXPECT_EQ(plan.height, c.height);
        EXPECT_EQ(plan.caption, c.caption);
    }
    EXPECT_EQ(pictureInformation("a.gif", 1023), "a.gif - 0 KB");
    EXPECT_EQ(pictureInformation("a.gif", 1024), "a.gif - 1 KB");
}

class FakeViewer : public ViewerView, public PictureSizes {
public:
    std::optional<PictureSize> sizeOf(const std::string &) const override { return size; }
    void hideFindDialog() override { findHidden = true; }
    std::optional<PictureSize> load(const std::string &) override { return size; }
    void emptyPicture() override { }
    void enableTag(bool on) override { tagEnabled = on; }
    void showSizeAndPath(const std::string &text, const std::string &) override { shownSize = text; }
    void showViewer(PictureSize) override { visible = true; }
    bool viewerIsVisible() const override { return visible; }
    void raiseViewer() override { ++raised; }
    void hideViewer() override { visible = false; }
    void showPanel(bool on) override { panel = on; }
    std::optional<Colour> colourAt(int x, int) const override
    {
        return x < 100 ? std::optional(Colour{0xFF}) : std::nullopt;
    }
    void showSample(Colour, const std::string &text) override { code = text; }
    std::string sampleCode() const override { return code; }

    std::optional<PictureSize> size = PictureSize{120, 80};
    bool findHidden = false;
    int raised = 0;
    bool tagEnabled = true;
    bool visible = false;
    bool panel = false;
    std::string shownSize;
    std::string code;
};

class ImageCommandsTest : public testing::Test, protected DocumentDesk {
protected:
    void view(const std::string &path)
    {
        files.files[path] = std::string(2048, 'x');
        dialogs.choices = {path};
        commands.ViewImage();
    }

    FakeClipboard clipboard;
    FakeViewer viewer;
    ImageCommands commands{{document, main, files, dialogs, messages, clipboard, viewer, viewer}};
};

TEST_F(ImageCommandsTest, AViewedPictureStaysUntilAnotherIsShownOrItIsClosed)
{
    view("photo.jpeg");
    EXPECT_FALSE(viewer.visible || viewer.panel);
    view("/pictures/sea.gif");
    EXPECT_TRUE(viewer.findHidden);
    commands.SampleImageColour(3, 4);
    commands.SampleImageColour(100, 4); // beside the picture
    commands.CopySampledColour();
    EXPECT_EQ(clipboard.content, "\"#FF0000\"");
    dialogs.choices = {"other.jpg"};
    commands.CopyImageTag();
    commands.ViewImage(); // cancelled
    EXPECT_EQ(viewer.raised, 2);
    viewer.size.reset();
    for (const auto *path : {"broken.jpg", "broken.bmp", "photo.jpeg"}) {
        SCOPED_TRACE(path);
        view(path);
        EXPECT_TRUE(viewer.visible && viewer.panel && viewer.tagEnabled);
        EXPECT_EQ(viewer.shownSize, "120 x 80");
        EXPECT_EQ(main.information, "sea.gif - 2 KB");
        commands.CopyViewedImageTag();
        EXPECT_EQ(clipboard.content, "<IMG SRC=\"sea.gif\" WIDTH=120 HEIGHT=80 ALIGN= HSPACE= VSPACE=>");
    }
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(document.hasFocus()) << "where the tag is pasted";
    commands.CloseImageViewer();
    EXPECT_FALSE(viewer.panel || viewer.visible);
    EXPECT_EQ(main.information, "");
}

TEST_F(ImageCommandsTest, PutsTagsOnTheClipboard)
{
    const auto wrongType = "As this function auto-inserts code for webpage images, it only accepts .jpg and "
                           ".gif files.";
    struct {
        void (ImageCommands::*command)();
        const char *path;
        const char *tag;
        const char *message;
    } const cases[] = {
        {&ImageCommands::CopyImageTag, "/a/sea.jpg",
            "<IMG SRC=\"sea.jpg\" WIDTH=120 HEIGHT=80 ALIGN= HSPACE= VSPACE=>", ""},
        {&ImageCommands::CopyLinkedImageTag, "sea.GIF",
            "<A HREF=><IMG SRC=\"sea.GIF\" WIDTH=120 HEIGHT=80 ALIGN= HSPACE= VSPACE= ALT=></A>", ""},
        {&ImageCommands::CopyBodyBackgroundTag, "/a/sea.jpeg",
            "<BODY BACKGROUND=\"sea.jpeg\" TEXT= LINK= ALINK= VLINK=>", ""},
        {&ImageCommands::CopyImageTag, "photo.JPEG", "", wrongType},
        {&ImageCommands::CopyLinkedImageTag, "icon.bmp", "", wrongType},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.path);
        clipboard.content.clear();
        messages.shown.clear();
        dialogs.choices = {c.path};
        (commands.*c.command)();
        EXPECT_EQ(clipboard.content, c.tag);
        EXPECT_EQ(messages.shown.empty() ? "" : messages.shown[0].text, c.message);
        EXPECT_TRUE(messages.shown.empty() || messages.shown[0].title == "Wrong file type");
    }
}

class FakeColourFinder : public ColourFinderView {
public:
    void showPanel(bool) override { }
    std::string typedCode() const override { return typed; }
    Colour shownColour() const override { return colour; }
    void showColour(Colour shown, const std::string &text) override
    {
        colour = shown;
        code = text;
    }
    std::string shownCode() const override { return code; }

    std::string typed;
    Colour colour;
    std::string code;
};

TEST(ColourFinderCommands, ShowsTypedAndChosenColours)
{
    const auto wrongLength = "The hex code must be 6 characters.";
    const auto wrongCharacter = "Error in hex code. All characters must be 0 thru 9 or A thru F.";
    struct {
        const char *typed; ///< empty: the colour is only chosen
        std::optional<Colour> chosen;
        const char *code;
        const char *message;
    } const cases[] = {
        {"ff8000", Colour{0x0080FF}, "\"#FF8000\"", ""},
        {"ff8000", Colour{0}, "\"#ff8000\"", ""},
        {"000000", {}, "\"#000000\"", ""},
        {"#FF800", {}, "", wrongCharacter},
        {"FF80000", {}, "", wrongLength},
        {"", Colour{0xFF}, "\"#FF0000\"", ""},
        {"", Colour{0}, "", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.typed);
        MemorySurface document;
        FakeColourDialog dialog;
        FakeMessages messages;
        FakeClipboard clipboard;
        FakeColourFinder view;
        ColourFinderCommands commands(document, dialog, messages, clipboard, view);
        dialog.chosen = c.chosen;
        view.typed = c.typed;
        if (view.typed.empty())
            commands.ChooseColour();
        else
            commands.ShowTypedColour();
        commands.CopyColourCode();
        EXPECT_EQ(clipboard.content, c.code);
        EXPECT_EQ(messages.shown.empty() ? "" : messages.shown[0].text, c.message);
    }
}

} // namespace
} // namespace kevra
