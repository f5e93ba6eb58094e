// SPDX-License-Identifier: GPL-3.0-or-later
// A page made ready to be shown beside its text.
#pragma once

#include <string>
#include <string_view>

namespace kevra::page {

/// Stands where the server would put text; an element, so that a style sheet finds it by its class.
inline constexpr std::string_view serverPartMark = R"(<span class="kevra-server-part">&#9670;</span>)";

/// The page with each start tag's offset in `html` as its first attribute, `attribute`; without any
/// when that is empty. Server parts are left
/// out; where text may stand there is a mark for each.
[[nodiscard]] std::string markedPage(std::string_view html, std::string_view attribute);

} // namespace kevra::page
