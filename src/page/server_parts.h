// SPDX-License-Identifier: GPL-3.0-or-later
// The parts of a page that a server runs and no browser sees: <% %> and <?php ?>.
#pragma once

#include "text/types.h"

#include <string>
#include <string_view>
#include <vector>

namespace kevra::page {

struct ServerPart {
    TextRange range;
    bool isOutput = false; ///< <%= %> and <?= ?>: nothing but text comes of it
};

/// Ascending by place. A <% without its %> is none; a <?php without its ?> goes to the end of the text.
[[nodiscard]] std::vector<ServerPart> findServerParts(std::string_view text);

/// `text` with the parts overwritten, so that every offset stays what it was: with blanks, or with letters in
/// an attribute's value that has no quotation marks, which would otherwise be lost.
[[nodiscard]] std::string withoutServerParts(std::string_view text, const std::vector<ServerPart> &parts);

/// Whether one of the parts reaches into the range.
[[nodiscard]] bool holdsServerPart(const std::vector<ServerPart> &parts, TextRange range);

} // namespace kevra::page
