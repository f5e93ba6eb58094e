// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/words.h"

namespace kevra {
namespace {

TEST(CharacterCount, CountsCharactersOfEveryLengthWhereverTheyStart)
{
    constexpr std::string_view characters[] = {"a", "é", "→", "𝄞"};
    for (std::size_t first = 0; first < 4; ++first) {
        std::string text;
        for (std::size_t count = 0; count < 40; ++count) {
            ASSERT_EQ(characterCount(text), static_cast<Offset>(count)) << text;
            text += characters[(first + count * count) % 4];
        }
    }
}

} // namespace
} // namespace kevra
