// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/words.h"

#include <cctype>

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

TEST(Words, AreMadeOfLettersDigitsAndTheUnderscore)
{
    for (char byte = 0; byte >= 0 && byte < 127; ++byte) {
        const bool word = std::isalnum(byte) || byte == '_';
        EXPECT_EQ(isAsciiWord(byte), word) << byte;
        EXPECT_EQ(isWordCharacter(static_cast<char32_t>(byte)), word) << byte;
    }
}

} // namespace
} // namespace kevra
