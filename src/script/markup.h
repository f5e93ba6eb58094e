// SPDX-License-Identifier: GPL-3.0-or-later
// Just enough of HTML and XML to find script in them: tags with their attributes.
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
    std::string_view name; ///< empty where no tag was found
    bool closing = false; ///< </name>
    bool empty = false; ///< <name/>
    TextRange range;
    std::vector<Attribute> attributes;

    /// Without regard to the case of letters; nullptr where the tag has no such attribute.
    [[nodiscard]] const Attribute *find(std::string_view attribute) const;
    [[nodiscard]] std::string_view value(std::string_view attribute) const;
};

/// ASCII letters in either case.
[[nodiscard]] bool sameWord(std::string_view a, std::string_view b);
/// Where `word` stands in `text` from `from` on, in either case; npos where it does not.
[[nodiscard]] std::size_t findWord(std::string_view text, std::string_view word, std::size_t from);
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// The tag that begins at text[at] == '<'; with an empty name where none does. <% %> in it is passed over as
/// a whole.
[[nodiscard]] Tag readTag(std::string_view text, std::size_t at);

/// Just past the next `close` after `from`; the end of the text where there is none.
[[nodiscard]] std::size_t past(std::string_view text, std::string_view close, std::size_t from);

} // namespace kevra::script
