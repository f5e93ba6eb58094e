// SPDX-License-Identifier: GPL-3.0-or-later
// The rules for pages: each is a function that looks at the whole page. Their rows are in page_analysis.cpp.
#pragma once

#include "page/address.h"
#include "page/element_tree.h"
#include "page/page_files.h"
#include "page/server_parts.h"
#include "script/finding.h"

#include <string>
#include <string_view>
#include <vector>

namespace kevra::page {

/// A page as the rules see it.
struct PageModel {
    std::string_view html;
    std::vector<ServerPart> parts;
    std::string plain; ///< the page with its server parts overwritten
    ElementTree tree;
    Addresses addresses;
    PageFiles &files;

    PageModel(std::string_view page, const PageFolders &folders, PageFiles &pageFiles);

    [[nodiscard]] std::string_view text(TextRange range) const;
    /// Some of it comes from the server, so nothing certain can be said about it.
    [[nodiscard]] bool isOpen(TextRange range) const { return holdsServerPart(parts, range); }
    /// The server decides which elements of the page there are.
    [[nodiscard]] bool isAssembled() const;
};

using Findings = std::vector<script::Finding>;

// link_rules.cpp
void checkLinks(const PageModel &page, Findings &findings);
// picture_attribute_rules.cpp
void checkPictures(const PageModel &page, Findings &findings);
// id_rules.cpp
void checkIds(const PageModel &page, Findings &findings);
// nesting_rules.cpp
void checkNesting(const PageModel &page, Findings &findings);

} // namespace kevra::page
