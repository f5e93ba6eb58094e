// SPDX-License-Identifier: GPL-3.0-or-later
// A page's text made ready for being shown beside it.
#pragma once

#include "page/element_tree.h"
#include "text/types.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kevra {

struct PageText {
    std::uint64_t revision = 0; ///< of the document's text, for whoever asked
    std::string shown; ///< what a browser is given; only of a text that is to be loaded
    std::string marked; ///< the same with the offset of each tag, as a literal of JavaScript
    page::ElementTree tree;

    /// The start of the innermost element that holds the offset; -1 when there is none.
    [[nodiscard]] Offset elementAt(Offset offset) const;
    /// The text of the element that begins there, with its tags.
    [[nodiscard]] std::optional<TextRange> elementFrom(Offset tag) const;
};

enum class PageUse { Change, Load };
[[nodiscard]] PageText makePageText(std::string_view text, std::uint64_t revision, PageUse use);

/// A text as a literal of JavaScript, with its quotation marks.
[[nodiscard]] std::string scriptLiteral(std::string_view text);

} // namespace kevra
