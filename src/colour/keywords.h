// SPDX-License-Identifier: GPL-3.0-or-later
// The words of a script that are painted in the code colour.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace kevra {

struct Keyword {
    std::string_view text; ///< small letters
    bool wholeWord = true;
};

/// In the order the whole-document pass paints them, which shows when a pass ends early.
inline constexpr std::array<Keyword, 19> keywords{{{"sub"}, {"end sub", false}, {"end if", false},
    {"function"}, {"end function", false}, {"set"}, {"do"}, {"dim"}, {"for"}, {"next"}, {"loop"}, {"if"},
    {"else"}, {"elseif"}, {"call"}, {"then"}, {"msgbox"}, {"inputbox"}, {"not"}}};

/// The place of "next" among them.
inline constexpr int nextRank = 9;

inline constexpr std::size_t shortestKeyword = 2;
inline constexpr std::size_t longestKeyword = 8;

/// The first letters of a word in one number, as they lie in memory, and zeros behind a shorter one.
using PackedWord = std::uint64_t;

/// The place of an ASCII word of two to eight letters in the list, whatever its case, or -1; the two-word
/// entries are not in it. What stands behind the word's letters does not matter.
[[nodiscard]] int keywordRank(PackedWord letters, std::size_t length);

/// The place of the entry "end if", "end sub" or "end function" that starts at `at`, or nothing.
[[nodiscard]] std::optional<int> blockEndRank(std::string_view text, std::size_t at);

} // namespace kevra
