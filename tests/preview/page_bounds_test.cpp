// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/page_bounds.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

TEST(PageBounds, SoManyASecondWhateverCameBefore)
{
    RateLimit limit(3);
    int allowed = 0;
    for (std::int64_t now = 500; now < 2500; ++now)
        allowed += limit.allows(now) ? 1 : 0;
    EXPECT_EQ(allowed, 6);
    EXPECT_TRUE(limit.allows(60'000)) << "after a pause";
}

} // namespace
} // namespace kevra
