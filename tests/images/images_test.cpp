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

/// No viewer: only the sizes of pictures are asked for.
class FakeViewer : public ViewerView, public PictureSizes {
public:
    std::optional<PictureSize> sizeOf(const std::string &) const override { return PictureSize{120, 80}; }
    void hideFindDialog() override { }
    std::optional<PictureSize> load(const std::string &) override { return std::nullopt; }
    void emptyPicture() override { }
    void enableTag(bool) override { }
    void showSizeAndPath(const std::string &, const std::string &) override { }
    void showViewer(PictureSize) override { }
    bool viewerIsVisible() const override { return false; }
    void raiseViewer() override { }
    void hideViewer() override { }
    void showPanel(bool) override { }
    std::optional<Colour> colourAt(int, int) const override { return std::nullopt; }
    void showSample(Colour, const std::string &) override { }
    std::string sampleCode() const override { return {}; }
};

TEST(ImageCommands, PutTagsOnTheClipboard)
{
    using I = ImageCommands;
    struct {
        void (I::*command)();
        const char *path;
        const char *tag; ///< empty: the file is not of a type for web pages
    } const cases[] = {
        {&I::CopyImageTag, "/a/sea.jpg", "<IMG SRC=\"sea.jpg\" WIDTH=120 HEIGHT=80 ALIGN= HSPACE= VSPACE=>"},
        {&I::CopyLinkedImageTag, "sea.GIF",
            "<A HREF=><IMG SRC=\"sea.GIF\" WIDTH=120 HEIGHT=80 ALIGN= HSPACE= VSPACE= ALT=></A>"},
        {&I::CopyBodyBackgroundTag, "/a/sea.jpeg",
            "<BODY BACKGROUND=\"sea.jpeg\" TEXT= LINK= ALINK= VLINK=>"},
        {&I::CopyImageTag, "photo.JPEG", ""},
        {&I::CopyLinkedImageTag, "icon.bmp", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.path);
        DocumentDesk desk;
        FakeClipboard clipboard;
        FakeViewer viewer;
        ImageCommands commands(
            {desk.document, desk.main, desk.files, desk.dialogs, desk.messages, clipboard, viewer, viewer});
        desk.dialogs.choices = {c.path};
        (commands.*c.command)();
        EXPECT_EQ(clipboard.content, c.tag);
        EXPECT_EQ(desk.document.hasFocus(), !clipboard.content.empty()) << "where the tag is pasted";
        std::vector<Message> told;
        if (clipboard.content.empty())
            told.push_back({"As this function auto-inserts code for webpage images, it only accepts .jpg and "
                            ".gif files.",
                Icon::Information, Buttons::Ok, "Wrong file type"});
        EXPECT_EQ(desk.messages.shown, told);
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
        EXPECT_EQ(messages.last(), c.message);
    }
}

} // namespace
} // namespace kevra
