// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/layout.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

LayoutRequest requestFor(TwipRect inner)
{
    return {.inner = inner,
        .panels = {{{9000, 480}, {6000, 480}, {9001, 480}, {30000, 480}}},
        .fonts = {2400, 390},
        .information = {0, 360},
        .image = {4000, 1000},
        .colour = {5000, 700}};
}

TEST(Layout, EverythingStandsInItsPlaceOfTheInnerArea)
{
    const auto places = layout(requestFor({100, 200, 20000, 12000}));
    EXPECT_EQ(places.editor, (TwipRect{535, 980, 18800, 10725}));
    EXPECT_EQ(places.lineNumbers.top, 980);
    EXPECT_EQ(places.lineNumbers.height, places.editor.height);
    EXPECT_LE(places.lineNumbers.right(), places.editor.left);
    EXPECT_EQ(places.panels[0], (TwipRect{5600, 11705, 9000, 480}));
    EXPECT_EQ(places.panels[2].left, 5599);
    EXPECT_EQ(places.fonts.left, 17700);
    EXPECT_EQ(places.information.left, 280);
    EXPECT_EQ(places.information.width, 17420);
    EXPECT_EQ(places.image, (TwipRect{8100, 11200, 4000, 1000}));
    EXPECT_EQ(places.colour.left, 7600);
    EXPECT_LE(places.status.bottom(), places.editor.top);
    EXPECT_GE(places.status.top, places.information.bottom());
}

TEST(Layout, LargeFontsAreNotCut)
{
    auto request = requestFor({0, 0, 20000, 12000});
    request.information.height = 600;
    request.status = 450;
    request.panels[0].height = 700;
    const auto places = layout(request);
    EXPECT_GE(places.status.height, 450);
    EXPECT_LE(places.status.bottom(), places.editor.top);
    EXPECT_LE(places.panels[0].bottom(), 12000);
    EXPECT_EQ(places.editor.bottom(), 12000 - 495);
}

TEST(Layout, NothingIsNegativeHoweverSmallTheWindow)
{
    for (const TwipRect inner : {TwipRect{0, 0, 0, 0}, TwipRect{0, 0, 100, 100}, TwipRect{0, 0, 3000, 1275},
             TwipRect{0, 0, -50, -50}, TwipRect{0, 0, 2000000000, 20}}) {
        SCOPED_TRACE(inner.width);
        const auto made = layout(requestFor(inner));
        for (const auto &place : {made.editor, made.lineNumbers, made.panels[0], made.panels[3], made.fonts,
                 made.information, made.status, made.image, made.colour})
            EXPECT_TRUE(place.width >= 0 && place.height >= 0);
    }
    EXPECT_GE(layout(requestFor({0, 0, 3000, 9000})).panels[3].left, 0) << "a wide panel stays reachable";
}

} // namespace
} // namespace kevra
