// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/words.h"

#include "text/utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace kevra {
namespace {

struct CodeRange {
    char32_t first;
    char32_t last;
};

// Beyond ASCII nearly every character is a letter, except in these blocks of signs.
constexpr std::array signBlocks{CodeRange{0x80, 0xA9}, CodeRange{0xAB, 0xB1}, CodeRange{0xB4, 0xB4},
    CodeRange{0xB6, 0xB8}, CodeRange{0xBB, 0xBF}, CodeRange{0xD7, 0xD7}, CodeRange{0xF7, 0xF7},
    CodeRange{0x2C2, 0x2C5}, CodeRange{0x2D2, 0x2DF}, CodeRange{0x37E, 0x37E}, CodeRange{0x387, 0x387},
    CodeRange{0x482, 0x482}, CodeRange{0x55A, 0x55F}, CodeRange{0x589, 0x58F}, CodeRange{0x5BE, 0x5BE},
    CodeRange{0x5C0, 0x5C0}, CodeRange{0x5C3, 0x5C3}, CodeRange{0x5F3, 0x5F4}, CodeRange{0x600, 0x60F},
    CodeRange{0x61B, 0x61F}, CodeRange{0x66A, 0x66D}, CodeRange{0x6D4, 0x6D4}, CodeRange{0x964, 0x965},
    CodeRange{0x2000, 0x203E}, CodeRange{0x2041, 0x2053}, CodeRange{0x2055, 0x2070},
    CodeRange{0x207A, 0x207E}, CodeRange{0x208A, 0x208E}, CodeRange{0x20A0, 0x20CF},
    CodeRange{0x2190, 0x245F}, CodeRange{0x2500, 0x2775}, CodeRange{0x2794, 0x2BFF},
    CodeRange{0x2E00, 0x2E7F}, CodeRange{0x3000, 0x3004}, CodeRange{0x3008, 0x3020},
    CodeRange{0x3030, 0x3030}, CodeRange{0xD800, 0xF8FF}, CodeRange{0xFE10, 0xFE1F},
    CodeRange{0xFE30, 0xFE6F}, CodeRange{0xFEFF, 0xFF0F}, CodeRange{0xFF1A, 0xFF20},
    CodeRange{0xFF3B, 0xFF3E}, CodeRange{0xFF40, 0xFF40}, CodeRange{0xFF5B, 0xFF65},
    CodeRange{0xFFE0, 0xFFFF}, CodeRange{0x1F000, 0x1FAFF}, CodeRange{0xE0000, 0x10FFFF}};

/// Whether the character that starts there belongs to a word; bytes that are none do not.
bool isWordAt(std::string_view text, Offset position)
{
    const auto start = static_cast<std::size_t>(position);
    if (static_cast<unsigned char>(text[start]) < 0x80)
        return isAsciiWord(text[start]);
    const auto character = firstCharacter(text.substr(start));
    return character.length > 0 && isWordCharacter(character.value);
}

} // namespace

bool isWordCharacter(char32_t character)
{
    if (character < 0x80)
        return isAsciiWord(static_cast<char>(character));
    const auto block = std::ranges::upper_bound(signBlocks, character, {}, &CodeRange::first);
    return block == signBlocks.begin() || character > std::prev(block)->last;
}

bool wordBefore(std::string_view text, Offset position)
{
    if (position <= 0)
        return false;
    return isWordAt(text, characterBefore(text, position));
}

bool wordAt(std::string_view text, Offset position)
{
    if (position < 0 || position >= static_cast<Offset>(text.size()))
        return false;
    return isWordAt(text, position);
}

Offset characterLength(std::string_view text, Offset position)
{
    auto end = position + 1;
    while (end < static_cast<Offset>(text.size()) && continuesCharacter(text[static_cast<std::size_t>(end)]))
        ++end;
    return end - position;
}

Offset characterBefore(std::string_view text, Offset position)
{
    auto at = position - 1;
    while (at > 0 && at > position - 4 && continuesCharacter(text[static_cast<std::size_t>(at)]))
        --at;
    return at > 0 ? at : 0;
}

Offset characterCount(std::string_view text)
{
    // Eight bytes at once: the caret may be at the far end of a line of megabytes.
    constexpr std::uint64_t lowBits = 0x0101010101010101;
    std::size_t continuing = 0;
    std::size_t at = 0;
    for (std::uint64_t word = 0; at + sizeof word <= text.size(); at += sizeof word) {
        std::memcpy(&word, text.data() + at, sizeof word);
        continuing += (word >> 7 & ~(word >> 6) & lowBits) * lowBits >> 56; // the sum of its bytes
    }
    const auto rest = text.substr(at);
    return static_cast<Offset>(at - continuing)
        + std::ranges::count_if(rest, [](char byte) { return !continuesCharacter(byte); });
}

} // namespace kevra
