// SPDX-License-Identifier: GPL-3.0-or-later
// A page made ready to be shown beside its text.
#pragma once

#include "page/page_parser.h"
#include "page/server_parts.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra::page {

/// Stands where the server would put text; an element, so that a style sheet finds it by its class.
inline constexpr std::string_view serverPartMark = R"(<span class="kevra-server-part">&#9670;</span>)";

struct Difference;

/// A page parsed once, and what is made of it.
class MarkedPage {
public:
    explicit MarkedPage(std::string html);

    /// The same page with another text, if it has the same elements for sure.
    [[nodiscard]] std::optional<MarkedPage> retyped(std::string html) const;

    /// The page with the offset of each start tag as its first attribute, called `attribute`; without offsets
    /// when that is empty. Server parts are left out; where text may stand, each has a mark in its place.
    [[nodiscard]] std::string text(std::string_view attribute) const;
    /// The same of a stretch between elements.
    [[nodiscard]] std::string text(std::string_view attribute, TextRange stretch) const;

    [[nodiscard]] const std::string &html() const { return m_html; }
    [[nodiscard]] const std::string &plain() const { return m_plain; }
    [[nodiscard]] const std::vector<ServerPart> &serverParts() const { return m_parts; }
    [[nodiscard]] const ElementTree &tree() const { return m_tree; }
    [[nodiscard]] const std::vector<TextPlace> &texts() const { return m_texts; }
    [[nodiscard]] bool isInQuirksMode() const { return m_inQuirksMode; }

private:
    MarkedPage() = default;
    [[nodiscard]] const TextPlace *retypedText(const std::string &html, const Difference &difference) const;

    std::string m_html;
    std::vector<ServerPart> m_parts;
    std::string m_plain; ///< without server parts, each byte at its offset
    std::vector<TextPlace> m_texts;
    bool m_inQuirksMode = false;
    ElementTree m_tree;
};

} // namespace kevra::page
