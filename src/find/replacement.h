// SPDX-License-Identifier: GPL-3.0-or-later
// Replacing and counting as functions of a text. Replacing goes on from the hit itself, so that what was put
// in takes part in the next hit together with what follows it.
#pragma once

#include "text/find.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace kevra {

inline constexpr Offset longestResult = Offset{1} << 30; ///< bytes; the control counts in 32 bits

/// All the replacements as one edit.
struct Replacement {
    TextRange range; ///< of the old text; empty when nothing was found
    std::string text; ///< what it becomes
    Offset count = 0; ///< how many hits were replaced
};

enum class Endless { NeverEnds };

/// Endless when the first hit would leave another one wholly inside what was put in, or when the result
/// outgrows what a document can hold.
[[nodiscard]] std::variant<Replacement, Endless> replacedAll(
    std::string_view text, std::string_view what, std::string_view by, FindOptions options);

/// Overlapping occurrences, parts of words too.
[[nodiscard]] Offset countOccurrences(std::string_view text, std::string_view what, Case letters);

} // namespace kevra
