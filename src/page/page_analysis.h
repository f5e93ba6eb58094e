// SPDX-License-Identifier: GPL-3.0-or-later
// What is broken in a page: links to what is not there, pictures without their description, ids given twice,
// tags that do not match. Nothing is asked of other machines.
#pragma once

#include "page/address.h"
#include "page/page_files.h"
#include "script/finding.h"

#include <string_view>
#include <vector>

namespace kevra::page {

/// Ascending by place, without those that a comment <!-- kevra: off KV4003 --> switches off: on its line, or
/// alone on a line for the element that follows.
[[nodiscard]] std::vector<script::Finding> analysePage(
    std::string_view html, const PageFolders &folders, PageFiles &files);

} // namespace kevra::page
