// SPDX-License-Identifier: GPL-3.0-or-later
// Replacing and counting as pure functions. The search continues at the replaced hit, so that a later hit can
// include replacement text together with the text after it.
#pragma once

#include "text/find.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace kevra {

inline constexpr Offset maxResultBytes = Offset{1} << 30; ///< bytes; the control counts in 32 bits

/// All the replacements as one edit.
struct Replacement {
    TextRange range; ///< of the old text; empty when nothing was found
    std::string text; ///< what it becomes
    Offset count = 0; ///< how many hits were replaced
};

enum class Endless { NeverEnds };

/// Endless when the replacement itself contains a hit, or when the result is larger than a document can be.
[[nodiscard]] std::variant<Replacement, Endless> replacedAll(
    std::string_view text, std::string_view what, std::string_view by, FindOptions options);

/// Counts overlapping occurrences and parts of words too.
[[nodiscard]] Offset countOccurrences(std::string_view text, std::string_view what, Case letters);

} // namespace kevra
