// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/recent_files.h"

#include "fakes/desktop.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

using Paths = std::vector<std::string>;

TEST(RecentFiles, TheLatestComesFirstAndOnceAndOldOnesFallOut)
{
    FakeSettingsStore store;
    RecentFiles recent(store);
    for (const auto *path : {"/a", "/b", "", "/c", "/b", "/b"})
        recent.add(path);
    EXPECT_EQ(recent.paths(), (Paths{"/b", "/c", "/a"}));
    EXPECT_EQ(RecentFiles(store).paths(), recent.paths()) << "the next start";
    for (int i = 0; i < 15; ++i)
        recent.add("/" + std::to_string(i));
    ASSERT_EQ(recent.paths().size(), RecentFiles::maxCount);
    EXPECT_EQ(recent.paths().front() + recent.paths().back(), "/14/5");
    recent.forgetAll();
    EXPECT_EQ(recent.paths(), Paths{});
}

} // namespace
} // namespace kevra
