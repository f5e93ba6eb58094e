// SPDX-License-Identifier: GPL-3.0-or-later
// Counting the words that open and close blocks: IF and END IF, FOR and NEXT, SUB and END SUB, DO and LOOP.
#pragma once

#include "text/types.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kevra {

/// The counters wrap at 16 bits, which a balanced script does not show.
struct BlockCounts {
    std::int16_t ifWords = 0; ///< with the "if" of every "end if"
    std::int16_t endIfWords = 0;
    std::int16_t forWords = 0;
    std::int16_t nextWords = 0;
    std::int16_t subWords = 0; ///< with the "sub" of every "end sub"
    std::int16_t endSubWords = 0;
    std::int16_t doWords = 0;
    std::int16_t loopWords = 0;

    friend bool operator==(const BlockCounts &, const BlockCounts &) = default;
};

void ResetBlockCounts(BlockCounts &counts);
/// Adds the block words of a region. "Resume Next" and "Exit Do" are left out by a look two characters back.
void CountBlocks(std::string_view text, TextRange region, BlockCounts &counts);
/// Takes away what stands in "'--" comments, never below zero. An "Exit Do" there is taken away although it
/// was never counted.
void UncountCommentBlocks(std::string_view text, BlockCounts &counts);

/// The counts of a whole script: its text outside string literals, less the comments.
[[nodiscard]] BlockCounts countBlocks(std::string_view text);

/// The kinds of block that do not match, as the information box shows them, in the order they are looked at.
[[nodiscard]] std::vector<std::string> blockVerdicts(const BlockCounts &counts, bool ifChecking);

} // namespace kevra
