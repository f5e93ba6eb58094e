// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/page_text.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

TEST(PageText, ShowsThePageWithoutOffsetsAndMarksItWithThem)
{
    const auto page = makePageText("<p a=\"\\\">x</p>\r\n<% \" %>", {1, PageUse::Load, nullptr});
    EXPECT_EQ(page.shown.find("kevra-offset"), std::string::npos);
    EXPECT_NE(page.shown.find("kevra-server-part"), std::string::npos);
    EXPECT_NE(page.marked.find("kevra-offset=\\\"0\\\" a=\\\"\\\\\\\">x</p>\\x0d\\x0a"), std::string::npos)
        << page.marked;
    EXPECT_TRUE(makePageText("x", {1, PageUse::Change, nullptr}).shown.empty());
}

TEST(PageText, HoldsTheCaretInTheElementThatIsBeingTyped)
{
    struct Row {
        std::string_view text; ///< the caret at |
        Offset element;
    };
    for (const auto &[text, element] : {Row{"<div>a<p>b|</div>", 6}, Row{"<div>a<p>b</p>|</div>", 0},
             Row{"<div>a<br>|</div>", 0}, Row{"<div><p>a|<p>b</div>", 9}, Row{"<p>a<i>b|", 4}}) {
        const auto caret = text.find('|');
        const auto page = makePageText(std::string(text).erase(caret, 1), {1, PageUse::Load, nullptr});
        EXPECT_EQ(page.elementAtCaret(static_cast<Offset>(caret)), element) << text;
    }
}

} // namespace
} // namespace kevra
