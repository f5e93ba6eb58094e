// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps a page from costing more than it is long: parsers look through everything that is open at each tag,
// through all attributes at each attribute, and open formatting elements anew in every block. Browsers have
// bounds of this kind too.
#pragma once

#include <cstddef>
#include <string>

namespace kevra::page {

struct NestingBound {
    std::size_t depth; ///< of elements
    std::size_t formatting; ///< elements such as b and font, open at one place
    std::size_t attributes; ///< of a tag
};

/// Overwrites with blanks the tags and attributes that go beyond the bound.
void applyBound(std::string &page, const NestingBound &bound);

} // namespace kevra::page
