// SPDX-License-Identifier: GPL-3.0-or-later
// A minimal HTML and XML scanner for finding script: tags with their attributes.
#pragma once

#include "text/types.h"

#include <string_view>
#include <vector>

namespace kevra::script {

struct Attribute {
    std::string_view name;
    std::string_view value; ///< without its quotation marks
};

struct Tag {
    std::string_view name; ///< empty if there is no tag
    bool closing = false; ///< </name>
    bool empty = false; ///< <name/>
    TextRange range;
    std::vector<Attribute> attributes;

    /// Ignoring case; null if the tag has no such attribute.
    [[nodiscard]] const Attribute *find(std::string_view attribute) const;
    [[nodiscard]] std::string_view value(std::string_view attribute) const;
};

/// Ignoring the case of ASCII letters.
[[nodiscard]] bool sameWord(std::string_view a, std::string_view b);
/// The position of `word` in `text` from `from` on, ignoring case, or npos.
[[nodiscard]] std::size_t findWord(std::string_view text, std::string_view word, std::size_t from);
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// The tag that begins at text[at] == '<', or one with an empty name. <% %> in it is skipped as a whole.
[[nodiscard]] Tag readTag(std::string_view text, std::size_t at);

/// The end of the next `close` from `from` on, or the end of the text.
[[nodiscard]] std::size_t past(std::string_view text, std::string_view close, std::size_t from);

} // namespace kevra::script
