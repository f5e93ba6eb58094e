// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/find.h"

#include <gtest/gtest.h>

namespace kevra {
namespace {

constexpr FindOptions wholeWord{.words = Word::Whole};
constexpr FindOptions matchCase{.letters = Case::Match};

TEST(Find, ReturnsTheFirstHitInsideTheRange)
{
    struct {
        const char *name;
        std::string_view text;
        std::string_view what;
        TextRange range;
        FindOptions options;
        Offset hit; ///< -1 for none
    } const cases[] = {
        {"case is ignored", "End IF", "if", {0, 6}, {}, 4},
        {"case is matched", "If if", "if", {0, 5}, matchCase, 3},
        {"hit ends at the range's end", "abc", "c", {0, 3}, {}, 2},
        {"hit reaches past the range", "abcd", "cd", {0, 3}, {}, -1},
        {"empty range", "aaa", "a", {1, 1}, {}, -1},
        {"reversed range", "aaa", "a", {2, 1}, {}, -1},
        {"start before the text", "abc", "a", {-5, 99}, {}, 0},
        {"nothing is never found", "abc", "", {0, 3}, {}, -1},
        {"whole word", "endif if", "if", {0, 8}, wholeWord, 6},
        {"underscore belongs to a word", "if_ if", "if", {0, 6}, wholeWord, 4},
        {"digit belongs to a word", "if2", "if", {0, 3}, wholeWord, -1},
        {"neighbour before the range", "xif", "if", {1, 3}, wholeWord, -1},
        {"neighbour after the range", "ifx", "if", {0, 2}, wholeWord, -1},
        {"letter of another alphabet beside it", "\xD0\xB6if if", "if", {0, 7}, wholeWord, 5},
        {"no-break space is no letter", "\xC2\xA0if", "if", {0, 4}, wholeWord, 2},
        {"accented letter in the other case", "CAF\xC3\x89", "caf\xC3\xA9", {0, 5}, {}, 0},
        {"overlapping near-hit", "aab", "ab", {0, 3}, {}, 1},
        {"whole word after a near-hit", "ifif if", "if", {0, 7}, wholeWord, 5},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(findText(c.text, c.what, c.range, c.options).value_or(-1), c.hit);
    }
}

} // namespace
} // namespace kevra
