// SPDX-License-Identifier: GPL-3.0-or-later
// The library's tree in the form of this project, with the places of text beside those of elements.
#pragma once

#include "page/element_tree.h"

namespace kevra::page {

/// A stretch of the page that became text.
struct TextPlace {
    TextRange range;
    std::size_t parent; ///< index into ParsedPage::elements
};

struct ParsedPage {
    std::vector<Element> elements; ///< the root first, a parent before its children
    std::vector<TextPlace> texts;
    bool inQuirksMode = false;
};

/// `page` is without server parts. Never fails: see ElementTree::parse.
[[nodiscard]] ParsedPage parsePage(std::string page);

} // namespace kevra::page
