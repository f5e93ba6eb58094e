// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/page_change.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <tuple>

namespace kevra::page {
namespace {

using Places = std::set<std::tuple<Offset, std::string, Offset>>; ///< of each tag, its name, its parent's tag

/// The elements outside the stretch; what follows it is moved.
Places elementsAround(const MarkedPage &page, TextRange stretch, Offset growth)
{
    Places places;
    const auto moved = [&](Offset at) { return at < stretch.end ? at : at + growth; };
    const auto &elements = page.tree().elements();
    for (const auto &element : elements) {
        const auto at = element.startTag.start;
        if (!element.startTag.empty() && (at < stretch.start || at >= stretch.end))
            places.emplace(moved(at), element.tag, moved(elements[element.parent].startTag.start));
    }
    return places;
}

TEST(PageChange, LeavesEverythingElseAsItWas)
{
    constexpr std::array<std::string_view, 20> pieces{"x", " ", "<b>", "</b>", "<p>", "</p>", "<div id=a>",
        "</div>", "<table>", "<tr><td>", "</table>", "<li>", "<%", "%>", "<!--", "-->", "<body class=x>", "<",
        ">", "&amp;"};
    std::mt19937 random(5);
    std::string text = "<!DOCTYPE html><body>";
    for (int i = 0; i < 20; ++i)
        text += "<div><p>one <b>two</b> <%= 3 "
                "%><table><tr><td>four<td>five</table><ul><li>six<li>seven</ul></div>\r\n";
    text += "<p>end</body>";
    int found = 0;
    for (int round = 0; round < 600; ++round) {
        auto edited = text;
        const auto piece = pieces[random() % pieces.size()];
        edited.replace(random() % text.size(), random() % 3 * (random() % 9), piece);
        SCOPED_TRACE(edited);
        const MarkedPage before(text);
        const MarkedPage after(edited);
        const auto change = changeBetween(before, after);
        if (!change)
            continue;
        ++found;
        const auto growth = std::ssize(edited) - std::ssize(text);
        EXPECT_EQ(elementsAround(before, change->before, growth), elementsAround(after, change->after, 0));
        EXPECT_LT(change->after.length(), std::ssize(text) / 2);
    }
    EXPECT_GT(found, 300) << "most edits change little";
}

TEST(RetypedPage, IsThePageThatIsParsed)
{
    constexpr std::array<std::string_view, 12> letters{
        "x", " ", "\r\n", "p;", "\xc3\xa9", "/", "=", "\"", "#", "lt", "b>", "%>"};
    constexpr std::array<std::string_view, 16> pieces{"text ", "<p>", "</p>", "<b>", "</b>", "<table>",
        "<td>", "</table>", "<%", "%>", "<script>", "</script>", "&am", "< ", "<a href=\"x\">", "\r\n"};
    std::mt19937 random(6);
    int found = 0;
    for (int round = 0; round < 4000; ++round) {
        std::string text = "<body>";
        for (int i = 0; i < 30; ++i)
            text += pieces[random() % (i % 3 == 0 ? 1 : pieces.size())];
        auto edited = text;
        edited.replace(6 + random() % (text.size() - 6), random() % 3, letters[random() % letters.size()]);
        const auto page = MarkedPage(text).retyped(edited);
        if (!page)
            continue;
        SCOPED_TRACE(text + "\n-> " + edited);
        ++found;
        const MarkedPage parsed(edited);
        EXPECT_EQ(page->text("at"), parsed.text("at"));
        ASSERT_EQ(page->tree().elements().size(), parsed.tree().elements().size());
        for (std::size_t i = 0; i < parsed.tree().elements().size(); ++i) {
            EXPECT_EQ(page->tree().elements()[i].whole, parsed.tree().elements()[i].whole);
            EXPECT_EQ(page->tree().elements()[i].endTag, parsed.tree().elements()[i].endTag);
        }
        ASSERT_EQ(page->texts().size(), parsed.texts().size());
        for (std::size_t i = 0; i < parsed.texts().size(); ++i)
            EXPECT_EQ(page->texts()[i].range, parsed.texts()[i].range);
    }
    EXPECT_GT(found, 300);
}

TEST(PageChange, LooksOnceAtWhatOnlyBeginsLikeTags)
{
    std::string tags;
    for (int i = 0; i < 200'000; ++i)
        tags += "<a ";
    const auto page = [&](const std::string &text) {
        return MarkedPage("<!DOCTYPE html><body><div><script>" + tags + text + "</script></div><p>");
    };
    EXPECT_TRUE(changeBetween(page("x"), page("y")));
}

} // namespace
} // namespace kevra::page
