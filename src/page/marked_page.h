// SPDX-License-Identifier: GPL-3.0-or-later
// A page made ready to be shown beside its text.
#pragma once

#include "page/page_parser.h"
#include "page/server_parts.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kevra::page {

/// Stands where the server would put text; an element, so that a style sheet finds it by its class.
inline constexpr std::string_view serverPartMark = R"(<span class="kevra-server-part">&#9670;</span>)";

/// A page parsed once, and what is made of it.
class MarkedPage {
public:
    explicit MarkedPage(std::string_view html);

    /// The page with the offset of each start tag as its first attribute, called `attribute`; without offsets
    /// when that is empty. Server parts are left out; where text may stand, each has a mark in its place.
    [[nodiscard]] std::string text(std::string_view attribute) const;
    [[nodiscard]] ElementTree tree() && { return ElementTree(std::move(m_page.elements)); }

private:
    std::vector<ServerPart> m_parts;
    std::string m_plain; ///< without server parts, each byte at its offset
    ParsedPage m_page;
};

} // namespace kevra::page
