// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/mark_scan.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace kevra {
namespace {

char byteAt(std::string_view text, Offset at)
{
    return at >= 0 && at < static_cast<Offset>(text.size()) ? text[static_cast<std::size_t>(at)] : '\0';
}

// Texts around the size of one block and of all blocks evaluated at once; ranges start and end anywhere.
TEST(MarkScan, VisitsWhatALoopOverTheBytesFinds)
{
    const auto predicate = [](auto window) {
        return (is(lowered(window.at(0)), 'a') & ~is(window.at(-1), 'b')) | (is(window.at(3), 'A'))
            | (isLetter(window.at(1)) & is(window.at(2), '\0'));
    };
    std::mt19937 random(20261121);
    const auto upTo = [&](Offset max) { return std::uniform_int_distribution<Offset>(0, max)(random); };
    for (int round = 0; round < 4000; ++round) {
        std::string text(static_cast<std::size_t>(upTo(round % 10 == 0 ? 2200 : 200)), ' ');
        for (auto &byte : text)
            byte = "aAbz[ \xE1"[upTo(6)];
        const auto start = upTo(static_cast<Offset>(text.size()));
        const TextRange range{start, start + upTo(static_cast<Offset>(text.size()) - start)};

        std::vector<Offset> expected;
        for (auto at = range.start; at < range.end; ++at) {
            const char byte = byteAt(text, at);
            const char next = byteAt(text, at + 1);
            if (((byte == 'a' || byte == 'A') && byteAt(text, at - 1) != 'b') || byteAt(text, at + 3) == 'A'
                || ((next == 'a' || next == 'A' || next == 'b' || next == 'z')
                    && byteAt(text, at + 2) == '\0'))
                expected.push_back(at);
        }
        std::vector<Offset> visited;
        forEachMark(text, range, predicate, [&](Offset at) { visited.push_back(at); });
        ASSERT_EQ(visited, expected) << text << " from " << range.start << " to " << range.end;
        ASSERT_EQ(countMarks(text, range, predicate), static_cast<Offset>(expected.size()));
    }
}

} // namespace
} // namespace kevra
