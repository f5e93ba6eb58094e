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

} // namespace
} // namespace kevra
