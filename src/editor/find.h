// SPDX-License-Identifier: GPL-3.0-or-later
// Searching, the one kind everything in the editor uses. A hit lies wholly inside the range; an empty or
// reversed range has none; whether a hit is a whole word is judged by its neighbours in the whole text, also
// those outside the range.
#pragma once

#include "editor/types.h"

#include <optional>
#include <string_view>

namespace kevra {

enum class Case { Ignore, Match };
enum class Word { Any, Whole };

struct FindOptions {
    Case letters = Case::Ignore;
    Word words = Word::Any;
};

/// The first hit of `what` in `range` of `text`; an empty `what` is never found. Letters beyond ASCII are
/// matched without regard to case where both forms take the same number of bytes.
[[nodiscard]] std::optional<Offset> find(
    std::string_view text, std::string_view what, TextRange range, FindOptions options = {});

} // namespace kevra
