// SPDX-License-Identifier: GPL-3.0-or-later
// What HTML says of its elements by name: which have no end tag, which may leave it out, what closes what.
#pragma once

#include <cstdint>
#include <string_view>

namespace kevra::page {

/// An element's row in the table; all names that HTML does not know share one.
enum class TagId : std::uint8_t {};

enum class TagKind : std::uint8_t {
    Void = 1, ///< neither content nor end tag
    Formatting = 2, ///< goes on in the next block when it was left open
    Special = 4, ///< an end tag of an inline element does not reach across it
    Scope = 8, ///< an end tag does not reach across it
    ClosesParagraph = 16,
    Table = 32, ///< a table or a part of one
    OptionalEnd = 64, ///< the end tag may be left out
    Foreign = 128, ///< holds another language than HTML
};

/// Letters in either case.
[[nodiscard]] TagId tagId(std::string_view name);
[[nodiscard]] bool has(TagId tag, TagKind kind);
[[nodiscard]] bool isTag(TagId tag, std::string_view lowerCaseName);

/// Whether there are elements that the start tag would end.
[[nodiscard]] bool closesSomething(TagId start);
/// Whether the start tag ends an element that is open around it.
[[nodiscard]] bool closesImplied(TagId start, TagId open);
/// Whether the start tag looks for such elements no further out than `open`.
[[nodiscard]] bool endsImpliedSearch(TagId start, TagId open);
/// Whether the end tag looks for its element no further out than `open`.
[[nodiscard]] bool endsEndTagSearch(TagId end, TagId open);

} // namespace kevra::page
