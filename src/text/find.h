// SPDX-License-Identifier: GPL-3.0-or-later
// The text search that everything in the editor uses. A hit lies completely inside the range; an empty or
// reversed range has none. Whether a hit is a whole word depends on its neighbours, including those outside
// the range.
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

/// Whether the texts are equal when case is ignored, by the same rules as findText().
[[nodiscard]] bool sameForSearch(std::string_view a, std::string_view b);

/// A string prepared for repeated searches.
class Finder {
public:
    explicit Finder(std::string_view what, FindOptions options = {});

    /// The first hit in `range` of `text`.
    [[nodiscard]] std::optional<Offset> first(std::string_view text, TextRange range) const;

private:
    /// A byte in lower and upper case; both are equal for a byte without case.
    struct Forms {
        unsigned char a = 0;
        unsigned char b = 0;
    };

    [[nodiscard]] std::optional<Offset> firstOccurrence(std::string_view text, Offset from, Offset end) const;
    [[nodiscard]] bool matches(const char *at) const;

    std::string m_what; ///< in lower case if case is ignored
    FindOptions m_options;
    Forms m_first;
    Forms m_last;
};

/// The first hit of `what` in `range` of `text`; an empty `what` is never found. When case is ignored, a
/// letter beyond ASCII matches its other case only if both take the same number of bytes.
[[nodiscard]] std::optional<Offset> findText(
    std::string_view text, std::string_view what, TextRange range, FindOptions options = {});

} // namespace kevra
