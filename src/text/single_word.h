// SPDX-License-Identifier: GPL-3.0-or-later
// Evaluates a byte test of mark_scan.h on a single word at compile time, so that a static_assert can compare
// the test with the table it stands for.
#pragma once

#include "text/words.h"

#include <cstddef>
#include <string_view>

namespace kevra {

/// A lane of one byte.
struct OneByte {
    char value = 0;
};

/// A mask of one byte.
struct OneTruth {
    bool value = false;

    friend constexpr OneTruth operator&(OneTruth a, OneTruth b) { return {a.value && b.value}; }
    friend constexpr OneTruth operator|(OneTruth a, OneTruth b) { return {a.value || b.value}; }
    friend constexpr OneTruth operator~(OneTruth a) { return {!a.value}; }
};

constexpr OneByte lowered(OneByte byte)
{
    return {lowerAscii(byte.value)};
}

constexpr OneTruth is(OneByte byte, char other)
{
    return {byte.value == other};
}

constexpr OneTruth isLetter(OneByte byte)
{
    return {lowerAscii(byte.value) >= 'a' && lowerAscii(byte.value) <= 'z'};
}

/// The first byte of a word, with zeros before and after the word.
class WordWindow {
public:
    constexpr explicit WordWindow(std::string_view word)
        : m_word(word)
    {
    }

    [[nodiscard]] constexpr OneByte at(std::ptrdiff_t distance) const
    {
        const auto place = static_cast<std::size_t>(distance);
        return {distance >= 0 && place < m_word.size() ? m_word[place] : '\0'};
    }

private:
    std::string_view m_word;
};

/// Whether the test holds at the start of the word.
template <typename Test> constexpr bool holdsAt(Test test, std::string_view word)
{
    return test(WordWindow(word)).value;
}

} // namespace kevra
