// SPDX-License-Identifier: GPL-3.0-or-later
// The tags of a page one after the other, as they are written: what becomes of them is the parser's business.
// Comments, and what is text in spite of its looks (scripts, style sheets), are passed over.
#pragma once

#include "script/markup.h"

#include <optional>
#include <string_view>

namespace kevra::page {

class TagScanner {
public:
    /// The text must outlive the scanner and its tags.
    explicit TagScanner(std::string_view text);

    /// Nothing at the end of the text.
    [[nodiscard]] std::optional<script::Tag> next();

private:
    [[nodiscard]] std::size_t pastMarkup(std::size_t at) const;
    void passRawText(std::string_view name);

    std::string_view m_text;
    std::size_t m_at = 0;
    int m_drawings = 0; ///< and formulas that are open: <title/> is as empty in them as it looks
};

/// Elements whose content is text up to their end tag.
[[nodiscard]] bool isRawText(std::string_view tag);

} // namespace kevra::page
