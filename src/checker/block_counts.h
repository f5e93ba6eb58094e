// SPDX-License-Identifier: GPL-3.0-or-later
// Counting the words that open and close blocks: IF and END IF, FOR and NEXT, SUB and END SUB, DO and LOOP.
#pragma once

#include "text/types.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kevra {

/// The counters wrap around at 16 bits, which does not show in a balanced script.
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
/// Adds the block words of a region. The test two characters back leaves out "Resume Next" and "Exit Do".
void CountBlocks(std::string_view text, TextRange region, BlockCounts &counts);
/// Subtracts the words in "'--" comments, never below zero. An "Exit Do" there is subtracted although it was
/// never counted.
void UncountCommentBlocks(std::string_view text, BlockCounts &counts);

/// The counts of a whole script, without string literals and comments.
[[nodiscard]] BlockCounts countScriptBlocks(std::string_view text);

/// The unbalanced kinds of block, worded as the information box shows them, in the order of checking.
[[nodiscard]] std::vector<std::string> blockVerdicts(const BlockCounts &counts, bool ifChecking);

} // namespace kevra
