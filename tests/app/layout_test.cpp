// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/layout.h"

#include <gtest/gtest.h>

#include <algorithm>

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

std::vector<TwipRect> all(const MainLayout &places)
{
    return {places.editor, places.lineNumbers, places.panels[0], places.panels[3], places.fonts,
        places.information, places.status, places.image, places.colour};
}

TEST(Layout, EverythingStandsInItsPlace)
{
    const auto places = layout(requestFor({0, 0, 20000, 12000}));
    EXPECT_EQ(places.editor, (TwipRect{435, 780, 18800, 10725}));
    EXPECT_EQ(places.lineNumbers.top, 780);
    EXPECT_EQ(places.lineNumbers.height, places.editor.height);
    EXPECT_LE(places.lineNumbers.right(), places.editor.left);
    EXPECT_EQ(places.panels[0], (TwipRect{5500, 11505, 9000, 480}));
    EXPECT_EQ(places.panels[1].left, 7000);
    EXPECT_EQ(places.panels[2].left, 5499);
    EXPECT_EQ(places.fonts.left, 17600);
    EXPECT_EQ(places.information.left, 180);
    EXPECT_EQ(places.information.width, 17420);
    EXPECT_EQ(places.image, (TwipRect{8000, 11000, 4000, 1000}));
    EXPECT_EQ(places.colour.left, 7500);
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

TEST(Layout, TheInnerAreasOwnPlaceCounts)
{
    const auto places = layout(requestFor({100, 200, 20000, 12000}));
    EXPECT_EQ(places.editor, (TwipRect{535, 980, 18800, 10725}));
    EXPECT_EQ(places.information.left, 280);
    EXPECT_EQ(places.image.bottom(), 12200);
}

TEST(Layout, NothingIsNegativeHoweverSmallTheWindow)
{
    for (const TwipRect inner : {TwipRect{0, 0, 0, 0}, TwipRect{0, 0, 100, 100}, TwipRect{0, 0, 3000, 1275},
             TwipRect{0, 0, -50, -50}, TwipRect{0, 0, 2000000000, 20}}) {
        const auto places = all(layout(requestFor(inner)));
        SCOPED_TRACE(inner.width);
        EXPECT_TRUE(
            std::ranges::all_of(places, [](auto place) { return place.width >= 0 && place.height >= 0; }));
    }
    EXPECT_GE(layout(requestFor({0, 0, 3000, 9000})).panels[3].left, 0) << "a wide panel stays reachable";
}

} // namespace
} // namespace kevra
