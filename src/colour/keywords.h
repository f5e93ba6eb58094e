// SPDX-License-Identifier: GPL-3.0-or-later
// The words of a script that are painted in the code colour.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace kevra {

struct Keyword {
    std::string_view text; ///< lower case
    bool wholeWord = true;
};

/// In the order in which the whole-document pass paints them, which matters if the pass ends early.
inline constexpr std::array<Keyword, 19> keywords{{{"sub"}, {"end sub", false}, {"end if", false},
    {"function"}, {"end function", false}, {"set"}, {"do"}, {"dim"}, {"for"}, {"next"}, {"loop"}, {"if"},
    {"else"}, {"elseif"}, {"call"}, {"then"}, {"msgbox"}, {"inputbox"}, {"not"}}};

/// The index of "next" in the list.
inline constexpr int nextRank = 9;

inline constexpr std::size_t shortestKeyword = 2;
inline constexpr std::size_t longestKeyword = 8;

/// The first eight letters of a word in memory order, padded with zeros.
using PackedWord = std::uint64_t;

/// The index in the list of an ASCII word of two to eight letters, or -1; ignores case. Two-word entries are
/// not found. Bytes of `letters` after `length` are ignored.
[[nodiscard]] int keywordRank(PackedWord letters, std::size_t length);

/// The index of the entry "end if", "end sub" or "end function" that starts at `at`, or nothing.
[[nodiscard]] std::optional<int> blockEndRank(std::string_view text, std::size_t at);

} // namespace kevra
