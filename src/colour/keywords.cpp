// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/keywords.h"

#include "text/words.h"

#include <algorithm>
#include <bit>

namespace kevra {
namespace {

using Letters = std::array<unsigned char, longestKeyword>;

constexpr PackedWord packed(std::string_view word)
{
    Letters letters{};
    std::ranges::copy(word, letters.begin());
    return std::bit_cast<PackedWord>(letters);
}

/// For every length, that many letters replaced by `byte`.
constexpr auto repeated(unsigned char byte)
{
    std::array<PackedWord, longestKeyword + 1> all{};
    for (std::size_t length = 0; length < all.size(); ++length) {
        Letters letters{};
        std::fill_n(letters.begin(), length, byte);
        all[length] = std::bit_cast<PackedWord>(letters);
    }
    return all;
}

constexpr auto letterMask = repeated(0xFF);
/// Setting the lower-case bit turns no other word character into a letter.
constexpr auto lowerCaseBits = repeated(0x20);

constexpr int slotBits = 6;

constexpr std::size_t slotOf(PackedWord word, std::uint64_t factor)
{
    return static_cast<std::size_t>((word * factor) >> (64 - slotBits));
}

/// Whether each whole-word entry gets a slot of its own.
constexpr bool isCollisionFree(std::uint64_t factor)
{
    std::array<bool, 1 << slotBits> taken{};
    for (const auto &keyword : keywords) {
        if (!keyword.wholeWord)
            continue;
        bool &slot = taken[slotOf(packed(keyword.text), factor)];
        if (slot)
            return false;
        slot = true;
    }
    return true;
}

constexpr auto factor = [] {
    std::uint64_t candidate = 0x9E3779B97F4A7C15u;
    while (!isCollisionFree(candidate))
        candidate = candidate * 5 + 2;
    return candidate;
}();

struct Slot {
    PackedWord word = 0;
    int rank = -1;
};

constexpr auto slots = [] {
    std::array<Slot, 1 << slotBits> all{};
    for (std::size_t rank = 0; rank < keywords.size(); ++rank) {
        if (keywords[rank].wholeWord) {
            const auto word = packed(keywords[rank].text);
            all[slotOf(word, factor)] = {word, static_cast<int>(rank)};
        }
    }
    return all;
}();

} // namespace

int keywordRank(PackedWord letters, std::size_t length)
{
    const auto word = (letters & letterMask[length]) | lowerCaseBits[length];
    const auto &slot = slots[slotOf(word, factor)];
    return slot.word == word ? slot.rank : -1;
}

std::optional<int> blockEndRank(std::string_view text, std::size_t at)
{
    for (std::size_t rank = 0; rank < keywords.size(); ++rank) {
        const auto &entry = keywords[rank];
        if (!entry.wholeWord && equalIgnoringCase(text.substr(at, entry.text.size()), entry.text))
            return static_cast<int>(rank);
    }
    return std::nullopt;
}

} // namespace kevra
