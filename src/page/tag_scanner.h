// SPDX-License-Identifier: GPL-3.0-or-later
// The tags of a page one after the other, as they are written: what becomes of them is the parser's business.
// Comments, and what is text in spite of its looks (scripts, style sheets), are passed over.
#pragma once

#include "script/markup.h"

#include <array>
#include <optional>
#include <string_view>

namespace kevra::page {

class TagScanner {
public:
    /// The text must outlive the scanner and its tags.
    explicit TagScanner(std::string_view text);

    /// Nothing at the end of the text.
    [[nodiscard]] std::optional<script::Tag> next();
    /// Whether the content of the last tag would be text in a page and is read as tags, for it is in a
    /// drawing.
    [[nodiscard]] bool holdsTags() const { return m_holdsTags; }

private:
    [[nodiscard]] std::size_t pastMarkup(std::size_t at) const;
    [[nodiscard]] bool isEndTag(std::size_t at, std::string_view name) const;
    void passRawText(std::string_view name);
    void countDrawings(const script::Tag &tag);

    std::string_view m_text;
    std::size_t m_at = 0;
    std::array<int, 2> m_drawings{}; ///< and formulas that are open
    bool m_holdsTags = false;
};

/// Elements whose content is text up to their end tag.
[[nodiscard]] bool isRawText(std::string_view tag);

} // namespace kevra::page
