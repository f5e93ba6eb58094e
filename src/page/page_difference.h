// SPDX-License-Identifier: GPL-3.0-or-later
// Where two versions of a page differ.
#pragma once

#include "page/marked_page.h"

namespace kevra::page {

/// They differ in these ranges and nowhere else.
struct Difference {
    TextRange before;
    TextRange after;

    [[nodiscard]] Offset growth() const { return after.end - before.end; }
    /// Whether a place of the old text is now at `now`.
    [[nodiscard]] bool leads(Offset place, Offset now) const;
    [[nodiscard]] bool leads(TextRange range, TextRange now) const;
};

/// Whether what stands in such an element is parsed as in the body of a page.
[[nodiscard]] bool holdsFlow(std::string_view tag);

[[nodiscard]] Difference differenceOf(std::string_view before, std::string_view after);
/// A server part that is another one counts as a whole.
[[nodiscard]] Difference differenceOf(const MarkedPage &before, const MarkedPage &after);

} // namespace kevra::page
