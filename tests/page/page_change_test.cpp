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

} // namespace
} // namespace kevra::page
