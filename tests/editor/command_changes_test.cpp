// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/command_changes.h"
#include "editor/unpainted_styles.h"

#include <gtest/gtest.h>

#include <random>

namespace kevra {

TEST(CommandChanges, TouchesAllThatDiffersAndWithinTheTextThatIsThere)
{
    std::mt19937 random(3);
    const auto upTo
        = [&](Offset end) { return static_cast<Offset>(random() % static_cast<unsigned>(end + 1)); };
    for (int run = 0; run < 2000; ++run) {
        std::string before(30, ' ');
        for (std::size_t i = 0; i < before.size(); ++i)
            before[i]
                = static_cast<char>('a' + i); // each character once, so that none can be taken for another
        auto text = before;
        CommandChanges changes;
        ASSERT_TRUE(changes.begin(EditKind::Paste));
        for (auto left = 1 + upTo(4); left > 0; --left) {
            const auto position = upTo(std::ssize(text));
            const auto removed = upTo(std::ssize(text) - position);
            const auto added = upTo(3) + (removed == 0 ? 1 : 0);
            changes.announce({position, removed, added});
            text.replace(static_cast<std::size_t>(position), static_cast<std::size_t>(removed),
                static_cast<std::size_t>(added), '*');
            ASSERT_TRUE(changes.settle());
        }
        const auto touched = changes.end();
        ASSERT_TRUE(touched);
        ASSERT_TRUE(
            0 <= touched->start && touched->start <= touched->end && touched->end <= std::ssize(text));
        const auto start = static_cast<std::size_t>(touched->start);
        const auto end = static_cast<std::size_t>(touched->end);
        EXPECT_EQ(text.substr(0, start), before.substr(0, start));
        EXPECT_TRUE(before.ends_with(text.substr(end))) << text << " from " << end;
    }
}

TEST(CommandChanges, BelongToTheOutermostCommandAlone)
{
    CommandChanges changes;
    EXPECT_TRUE(changes.begin(EditKind::Drop));
    EXPECT_FALSE(changes.begin(EditKind::Program));
    EXPECT_EQ(changes.kind(), EditKind::Drop);
    changes.announce({4, 0, 2});
    EXPECT_EQ(changes.settle(1)->added, 1); // the other byte was no text
    changes.announce({0, 0, 2});
    EXPECT_FALSE(changes.settle(0));
    EXPECT_FALSE(changes.settle());
    EXPECT_EQ(changes.end(), (TextRange{4, 5}));
    EXPECT_EQ(changes.kind(), EditKind::Program);
    EXPECT_TRUE(changes.begin(EditKind::Undo));
    EXPECT_EQ(changes.end(), std::nullopt);
}

TEST(UnpaintedStyles, ComeInSlicesWhateverIsTypedBeforeThem)
{
    constexpr Offset start = 1000;
    std::string styles(static_cast<std::size_t>(3 * UnpaintedStyles::slice + 7), '\0');
    for (std::size_t i = 0; i < styles.size(); ++i)
        styles[i] = static_cast<char>(i % 251);
    UnpaintedStyles unpainted;
    unpainted.keep(start, styles);
    const auto end = start + std::ssize(styles);
    EXPECT_FALSE(unpainted.isFarBelow({start + 10, start + UnpaintedStyles::slice}));
    EXPECT_TRUE(unpainted.isFarBelow({end - 10, end}));
    EXPECT_FALSE(unpainted.isFarBelow({start, end}));
    std::string painted;
    Offset typed = 0;
    while (const auto next = unpainted.takeNext(end + typed)) {
        EXPECT_EQ(next->start, start + std::ssize(painted) + typed);
        EXPECT_LE(std::ssize(next->styles), UnpaintedStyles::slice);
        painted += next->styles;
        unpainted.shift(5);
        typed += 5;
    }
    EXPECT_TRUE(painted == styles);
}

} // namespace kevra
