// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/colour_code.h"
#include "images/viewer_rules.h"

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
        {0xFFFFFF, "#FFFFFF"}, {0x80000012, "#12008012"}, // a system colour, longer than six digits
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

} // namespace
} // namespace kevra
