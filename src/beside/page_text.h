// SPDX-License-Identifier: GPL-3.0-or-later
// A page's text made ready for being shown beside it.
#pragma once

#include "page/marked_page.h"
#include "page/page_change.h"
#include "text/types.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kevra {

struct PageText {
    std::uint64_t revision = 0; ///< of the document's text, for whoever asked
    page::MarkedPage page;
    std::string shown; ///< what a browser is given; only of a text that is to be loaded
    std::uint64_t base = 0; ///< revision of the text that `change` is relative to
    std::optional<page::PageChange> change; ///< nothing: the page has to be compared as a whole
    /// The page, or what of it has changed, with the offset of each tag; as a literal of JavaScript.
    std::string marked;
    std::chrono::milliseconds cost{}; ///< of making this

    /// The start of the innermost element that holds the offset; -1 when there is none.
    [[nodiscard]] Offset elementAt(Offset offset) const;
    /// The same for a caret: behind the last character of what has no end tag, it is still in that element.
    [[nodiscard]] Offset elementAtCaret(Offset caret) const;
    /// The text of the element that begins there, with its tags.
    [[nodiscard]] std::optional<TextRange> elementFrom(Offset tag) const;
};

enum class PageUse { Change, Load };

struct PageTextRequest {
    std::uint64_t revision = 0;
    PageUse use = PageUse::Change;
    std::shared_ptr<const PageText> shown; ///< in the page now; may be null
};
[[nodiscard]] PageText makePageText(std::string text, const PageTextRequest &request);

/// A text as a literal of JavaScript, with its quotation marks.
[[nodiscard]] std::string scriptLiteral(std::string_view text);

} // namespace kevra
