// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/keywords.h"

#include "editor/words.h"

#include <algorithm>

namespace kevra {
namespace {

constexpr std::size_t longestKeyword = 8;

/// Up to eight ASCII letters in one number. Setting the bit that makes a letter small turns no other word
/// character into a letter.
constexpr std::uint64_t packed(std::string_view word)
{
    std::uint64_t value = 0;
    for (const char byte : word)
        value = value << 8 | (static_cast<unsigned char>(byte) | 0x20u);
    return value;
}

struct PackedKeyword {
    std::uint64_t value = 0;
    int rank = 0;
};

constexpr std::size_t slots = 64;

constexpr std::size_t slotOf(std::uint64_t value)
{
    return static_cast<std::size_t>((value * 0x9E3779B97F4A7C15u) >> 58);
}

/// Open addressing over the whole-word entries, at most a quarter full.
constexpr auto table = [] {
    std::array<PackedKeyword, slots> all{};
    for (std::size_t rank = 0; rank < keywords.size(); ++rank) {
        if (!keywords[rank].wholeWord)
            continue;
        auto slot = slotOf(packed(keywords[rank].text));
        while (all[slot].value != 0)
            slot = (slot + 1) % slots;
        all[slot] = {packed(keywords[rank].text), static_cast<int>(rank)};
    }
    return all;
}();

} // namespace

std::optional<int> keywordRank(std::string_view word)
{
    if (word.size() < 2 || word.size() > longestKeyword)
        return std::nullopt;
    const auto value = packed(word);
    for (auto slot = slotOf(value); table[slot].value != 0; slot = (slot + 1) % slots) {
        if (table[slot].value == value)
            return table[slot].rank;
    }
    return std::nullopt;
}

std::optional<int> blockEndRank(std::string_view text, std::size_t at)
{
    for (std::size_t rank = 0; rank < keywords.size(); ++rank) {
        const auto &entry = keywords[rank];
        if (!entry.wholeWord
            && std::ranges::equal(text.substr(at, entry.text.size()), entry.text, {}, lowerAscii))
            return static_cast<int>(rank);
    }
    return std::nullopt;
}

} // namespace kevra
