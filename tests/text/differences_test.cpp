// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/differences.h"

#include "text/middle_difference.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace std::string_literals;

namespace kevra {
namespace {

std::vector<std::string> linesOf(const std::string &text)
{
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const auto end = std::min(text.find('\n', at), text.size() - 1) + 1;
        lines.push_back(text.substr(at, end - at));
        at = end;
    }
    return lines;
}

void expectEveryLineExplained(std::vector<Hunk> (*compute)(std::string_view, std::string_view))
{
    std::mt19937 random(20261121);
    const std::string pieces[] = {"a\n", "b\r\n", "\0\n"s, "\xFF\n", "\n", "c"};
    for (int round = 0; round < 2000; ++round) {
        std::string before;
        std::string after;
        for (auto *text : {&before, &after})
            for (auto left = random() % 9; left > 0; --left)
                *text += pieces[random() % std::size(pieces)];
        const auto old = linesOf(before);
        const auto now = linesOf(after);
        Offset oldLine = 0;
        Offset nowLine = 0;
        const auto sameUpTo = [&](Offset end) {
            for (; nowLine < end; ++oldLine, ++nowLine)
                ASSERT_EQ(
                    old.at(static_cast<std::size_t>(oldLine)), now.at(static_cast<std::size_t>(nowLine)));
        };
        for (const auto &hunk : compute(before, after)) {
            sameUpTo(hunk.afterStart);
            ASSERT_EQ(oldLine, hunk.beforeStart);
            oldLine += hunk.beforeCount;
            nowLine += hunk.afterCount;
        }
        sameUpTo(std::ssize(now));
        ASSERT_EQ(oldLine, std::ssize(old));
    }
}

TEST(Differences, ExplainEveryLine)
{
    expectEveryLineExplained(differences);
    expectEveryLineExplained(middleDifference); // where the library is missing
}

} // namespace
} // namespace kevra
