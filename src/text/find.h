// SPDX-License-Identifier: GPL-3.0-or-later
// Searching, the one kind everything in the editor uses. A hit lies wholly inside the range; an empty or
// reversed range has none; whether a hit is a whole word is judged by its neighbours in the whole text, also
// those outside the range.
#pragma once

#include "text/types.h"

#include <optional>
#include <string>
#include <string_view>

namespace kevra {

enum class Case { Ignore, Match };
enum class Word { Any, Whole };

struct FindOptions {
    Case letters = Case::Ignore;
    Word words = Word::Any;
};

/// Whether the two are the same text but for capital and small letters, as a search sees it.
[[nodiscard]] bool sameIgnoringCase(std::string_view a, std::string_view b);

/// A string made ready for being found again and again.
class Finder {
public:
    explicit Finder(std::string_view what, FindOptions options = {});

    /// The first hit in `range` of `text`.
    [[nodiscard]] std::optional<Offset> first(std::string_view text, TextRange range) const;

private:
    /// A byte in its two forms; the same twice when it has one.
    struct Forms {
        unsigned char a = 0;
        unsigned char b = 0;
    };

    [[nodiscard]] std::optional<Offset> firstOfAnyWord(std::string_view text, Offset from, Offset end) const;
    [[nodiscard]] bool matches(const char *at) const;

    std::string m_what; ///< in small letters when their case does not matter
    FindOptions m_options;
    Forms m_first;
    Forms m_last;
};

/// The first hit of `what` in `range` of `text`; an empty `what` is never found. Letters beyond ASCII are
/// matched without regard to case where both forms take the same number of bytes.
[[nodiscard]] std::optional<Offset> find(
    std::string_view text, std::string_view what, TextRange range, FindOptions options = {});

} // namespace kevra
