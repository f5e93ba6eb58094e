// SPDX-License-Identifier: GPL-3.0-or-later
// The smallest part of a page that holds a change, so that a page that is shown need not be compared as a
// whole.
#pragma once

#include "page/marked_page.h"

#include <optional>

namespace kevra::page {

/// Neighbouring children of one element are replaced. Every other element is the same, moved by the
/// difference in length where it follows them.
struct PageChange {
    Offset parent = -1; ///< tag of the element, in both texts
    Offset previous = -1; ///< tag of the child before them, in both texts; -1: they are the first
    Offset next = -1; ///< tag of the child after them, in the old text; -1: they are the last
    TextRange before; ///< what they take up in the old text, the text around them included
    TextRange after; ///< the same in the new text; parsed by itself it gives the same elements
};

/// Nothing when only the whole page will do.
[[nodiscard]] std::optional<PageChange> changeBetween(const MarkedPage &before, const MarkedPage &after);

} // namespace kevra::page
