// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/comparison.h"

#include <gtest/gtest.h>

#include <random>

namespace kevra {
namespace {

TEST(Comparison, RowsHoldBothTextsWholeAndInOrder)
{
    std::mt19937 random(20261121);
    const auto pick = [&](int below) { return std::uniform_int_distribution(0, below - 1)(random); };
    for (int round = 0; round < 2000; ++round) {
        const auto text = [&] {
            std::string lines;
            for (int i = pick(12); i > 0; --i)
                lines += std::string(1, static_cast<char>('a' + pick(4))) + (i > 1 || pick(2) ? "\r\n" : "");
            return lines;
        };
        const auto left = text();
        const auto right = text();
        SCOPED_TRACE(testing::PrintToString(left) + " and " + testing::PrintToString(right));
        const auto result = compareTexts(left, right);
        Offset l = 0;
        Offset r = 0;
        bool differing = false;
        std::vector<Offset> starts;
        for (std::size_t i = 0; i < result.rows.size(); ++i) {
            const auto &row = result.rows[i];
            ASSERT_EQ(row.left, row.left == ComparedRow::none ? row.left : l++);
            ASSERT_EQ(row.right, row.right == ComparedRow::none ? row.right : r++);
            const bool differs = row.kind != RowKind::Same;
            if (differs && !differing)
                starts.push_back(static_cast<Offset>(i));
            differing = differs;
        }
        ASSERT_EQ(l, std::count(left.begin(), left.end(), '\n') + 1);
        ASSERT_EQ(r, std::count(right.begin(), right.end(), '\n') + 1);
        ASSERT_EQ(result.differences, starts);
        ASSERT_EQ(left == right, starts.empty());
        ASSERT_EQ(std::count(result.left.begin(), result.left.end(), '\n'), std::ssize(result.rows));
    }
}

} // namespace
} // namespace kevra
