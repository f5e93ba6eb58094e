// SPDX-License-Identifier: GPL-3.0-or-later
// What every EditorSurface has to do, run over each of them:
//   INSTANTIATE_TYPED_TEST_SUITE_P(Name, SurfaceContract, TheSurface);
#pragma once

#include "editor/surface.h"

#include <gtest/gtest.h>

namespace kevra {

inline constexpr Colour blue = colours::defaultCode;
inline constexpr Colour green = colours::separatorComment;

/// The colours as letters, one a byte: '.' black, 'b' blue, 'g' green, '?' any other.
inline std::string painted(const EditorSurface &surface)
{
    std::string marks;
    for (Offset i = 0; i < surface.TextLength(); ++i) {
        const auto colour = surface.ColourAt(i);
        marks += colour == colours::black ? '.' : colour == blue ? 'b' : colour == green ? 'g' : '?';
    }
    return marks;
}

template <typename Surface> class SurfaceContract : public testing::Test {
protected:
    Surface m_surface;
};
TYPED_TEST_SUITE_P(SurfaceContract);

TYPED_TEST_P(SurfaceContract, KeepsEveryByteOfADocument)
{
    using namespace std::string_view_literals;
    auto &surface = this->m_surface;
    for (const auto text : {""sv, "a"sv, "a\0b\0"sv, "\r\n\r\n"sv, "a\rb\r\r\nc"sv, "\xEF\xBB\xBFmark"sv,
             "h\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\r\n"sv}) {
        surface.Replace({0, surface.TextLength()}, "what stood there before");
        surface.Select({3, 7});
        surface.LoadText(text);
        EXPECT_EQ(surface.Text(), text);
        EXPECT_EQ(surface.TextLength(), std::ssize(text));
        EXPECT_EQ(surface.Selection(), TextRange{});
        EXPECT_EQ(painted(surface), std::string(text.size(), '.'));
    }
}

TYPED_TEST_P(SurfaceContract, ReadsPartsAndCutsOffWhatLiesOutside)
{
    auto &surface = this->m_surface;
    surface.LoadText("one\r\ntwo");
    EXPECT_EQ(surface.Text({3, 5}), "\r\n");
    EXPECT_EQ(surface.Text({-4, 2}), "on");
    EXPECT_EQ(surface.Text({5, 99}), "two");
    EXPECT_EQ(surface.Text({5, 5}), "");
    EXPECT_EQ(surface.Text({6, 2}), "");
    EXPECT_EQ(surface.Text({99, 120}), "");
}

TYPED_TEST_P(SurfaceContract, SelectsInsideTheText)
{
    auto &surface = this->m_surface;
    surface.LoadText("one\r\ntwo");
    const struct {
        TextRange asked;
        TextRange got;
    } cases[] = {{{1, 3}, {1, 3}}, {{-1, 2}, {0, 2}}, {{6, 99}, {6, 8}}, {{99, 100}, {8, 8}},
        {{3, 5}, {3, 5}}, {{4, 1}, {4, 4}}};
    for (const auto &c : cases) {
        surface.Select(c.asked);
        EXPECT_EQ(surface.Selection(), c.got) << c.asked.start << ' ' << c.asked.end;
    }
    surface.SetSelStart(5);
    EXPECT_TRUE(surface.SetSelLength(3));
    EXPECT_EQ(surface.SelText(), "two");
    EXPECT_FALSE(surface.SetSelLength(-1));
    EXPECT_EQ(surface.SelLength(), 3);
    surface.SetSelText("2");
    EXPECT_EQ(surface.Text(), "one\r\n2");
    EXPECT_EQ(surface.Selection(), (TextRange{6, 6}));
}

TYPED_TEST_P(SurfaceContract, GivesTheTypingColourToNewText)
{
    auto &surface = this->m_surface;
    surface.LoadText("abcdef");
    surface.SetSelStart(2);
    surface.SetSelColor(blue);
    EXPECT_EQ(surface.SelColor(), blue);
    surface.SetSelText("<>");
    EXPECT_EQ(painted(surface), "..bb....");
    surface.Select({0, 2});
    surface.SetSelColor(green);
    EXPECT_EQ(surface.SelColor(), green);
    surface.SetSelLength(0);
    EXPECT_EQ(surface.SelColor(), blue) << "the typing colour outlives a selection";
    surface.Replace({1, 5}, "gbx");
    EXPECT_EQ(surface.Text(), "agbxdef");
    EXPECT_EQ(painted(surface), "gbbb...")
        << "new text is in the typing colour, also where it equals the old";
    surface.SetSelColor(colours::black);
    surface.Replace({7, 7}, "!");
    EXPECT_EQ(painted(surface), "gbbb....");
    surface.Replace({1, 4}, {});
    EXPECT_EQ(painted(surface), "g....");
    surface.SetTypingColor(blue);
    surface.LoadText({});
    surface.SetSelText("x");
    EXPECT_EQ(painted(surface), ".") << "a new document does not go on in the old one's colour";
}

TYPED_TEST_P(SurfaceContract, PaintsRunsInTheirOrder)
{
    auto &surface = this->m_surface;
    const struct {
        const char *name;
        std::string_view text;
        TextRange range;
        ColourRuns runs;
        std::string_view marks;
    } cases[] = {
        {"nothing", "abcdef", {0, 6}, {}, "......"},
        {"apart", "abcdef", {0, 6}, {{{0, 1}, blue}, {{4, 6}, green}}, "b...gg"},
        {"the later one on top", "abcdef", {0, 6}, {{{0, 4}, blue}, {{2, 6}, green}, {{3, 4}, blue}},
            "bbgbgg"},
        {"not in order", "abcdef", {0, 6}, {{{4, 6}, blue}, {{0, 2}, green}}, "gg..bb"},
        {"beyond the range", "abcdef", {2, 4}, {{{-3, 3}, blue}, {{3, 99}, green}}, "??bg??"},
        {"outside the text", "abc", {-5, 9}, {{{-2, 1}, blue}, {{2, 9}, green}}, "b.g"},
        {"empty and reversed", "abcdef", {0, 6}, {{{2, 2}, blue}, {{4, 1}, green}}, "......"},
        {"an empty range", "abc", {1, 1}, {{{0, 3}, blue}}, "???"},
        {"beyond ASCII", "h\xC3\xA9<", {0, 4}, {{{1, 3}, blue}}, ".bb."},
        {"a line break", "a\r\nb", {0, 4}, {{{1, 3}, blue}}, ".bb."},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        surface.LoadText(c.text);
        surface.Select({0, surface.TextLength()});
        surface.SetSelColor(Colour{0x123456});
        surface.SetSelStart(1);
        surface.SetSelColor(green);
        surface.SetColours(c.range, c.runs);
        EXPECT_EQ(painted(surface), c.marks);
        EXPECT_EQ(surface.Selection(), (TextRange{1, 1}));
        EXPECT_EQ(surface.SelColor(), green);
        EXPECT_EQ(surface.Text(), c.text);
        if (c.range.start > 0 || c.range.end < surface.TextLength())
            continue;
        surface.SetPaint(paintOf(c.runs, surface.TextLength()));
        EXPECT_EQ(painted(surface), c.marks) << "as paint";
    }
}

TYPED_TEST_P(SurfaceContract, NumbersLines)
{
    auto &surface = this->m_surface;
    surface.LoadText("a\r\n\r\nb\rc\r\n");
    const Offset lines[] = {0, 0, 0, 1, 1, 2, 2, 3, 3, 3, 4};
    for (Offset i = 0; i <= surface.TextLength(); ++i)
        EXPECT_EQ(surface.GetLineFromChar(i), lines[i]) << "at " << i;
    EXPECT_EQ(surface.GetLineFromChar(-1), 0);
    EXPECT_EQ(surface.GetLineFromChar(99), 4);
}

TYPED_TEST_P(SurfaceContract, FindsAndSpansThroughTheSurface)
{
    auto &surface = this->m_surface;
    surface.LoadText("<b>Dim dims</b>\r\ndim");
    const FindOptions wholeWord{.letters = Case::Ignore, .words = Word::Whole};
    EXPECT_EQ(surface.Find("DIM", {0, 20}), 3);
    EXPECT_EQ(surface.Find("dim", {0, 20}, {.letters = Case::Match}), 7);
    EXPECT_EQ(surface.Find("dim", {4, 20}, wholeWord), 17);
    EXPECT_EQ(surface.Find("dim", {3, 6}, wholeWord), 3);
    EXPECT_EQ(surface.Find("dim", {3, 5}), std::nullopt);
    EXPECT_EQ(surface.Find("dim", {7, 10}, wholeWord), std::nullopt)
        << "its neighbour lies outside the range";
    EXPECT_EQ(surface.Find("dim", {20, 0}), std::nullopt);
    surface.Select({1, 2});
    surface.Span("> ");
    EXPECT_EQ(surface.SelText(), "b");
    surface.SetSelStart(3);
    surface.Span("\r");
    EXPECT_EQ(surface.SelText(), "Dim dims</b>");
    surface.Span("#");
    EXPECT_EQ(surface.Selection(), (TextRange{3, 20}));
}

TYPED_TEST_P(SurfaceContract, RemembersFontAndMargin)
{
    auto &surface = this->m_surface;
    EXPECT_EQ(surface.RightMargin(), noWrapMargin);
    surface.SetRightMargin(0);
    EXPECT_EQ(surface.RightMargin(), 0);
    surface.LoadText("<b>");
    surface.SetColours({0, 3}, std::vector{ColourRun{{0, 3}, blue}});
    const EditorFont font{"Verdana", 12};
    surface.SetFont(font);
    EXPECT_EQ(surface.Font(), font);
    EXPECT_EQ(painted(surface), "bbb");
}

TYPED_TEST_P(SurfaceContract, ScrollsWithinTheDocument)
{
    auto &surface = this->m_surface;
    std::string text;
    for (int i = 0; i < 500; ++i)
        text += "a line\r\n";
    surface.LoadText(text);
    EXPECT_EQ(surface.FirstVisibleLine(), 0);
    surface.SetFirstVisibleLine(120);
    EXPECT_EQ(surface.FirstVisibleLine(), 120);
    surface.SetColours({0, surface.TextLength()}, std::vector{ColourRun{{0, 99}, blue}});
    EXPECT_EQ(surface.FirstVisibleLine(), 120);
    surface.SetFirstVisibleLine(-1);
    EXPECT_EQ(surface.FirstVisibleLine(), 0);
    surface.SetFirstVisibleLine(9999);
    EXPECT_GT(surface.FirstVisibleLine(), 300);
    EXPECT_LE(surface.FirstVisibleLine(), 500);
    {
        const BusySurface busy(surface);
        surface.SetFirstVisibleLine(200);
        surface.SetSelStart(0);
    }
    EXPECT_EQ(surface.FirstVisibleLine(), 200) << "work on a surface that is not shown leaves the view alone";
    surface.LoadText("short");
    EXPECT_EQ(surface.FirstVisibleLine(), 0);
}

REGISTER_TYPED_TEST_SUITE_P(SurfaceContract, KeepsEveryByteOfADocument, ReadsPartsAndCutsOffWhatLiesOutside,
    SelectsInsideTheText, GivesTheTypingColourToNewText, PaintsRunsInTheirOrder, NumbersLines,
    FindsAndSpansThroughTheSurface, RemembersFontAndMargin, ScrollsWithinTheDocument);

} // namespace kevra
