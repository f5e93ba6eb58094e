// SPDX-License-Identifier: GPL-3.0-or-later
// What a page may fetch. A page under work may come from anywhere, so it gets what it needs to be shown and
// nothing that could carry a file of the user away.
#pragma once

#include "storage/file_store.h"

#include <string>
#include <string_view>

namespace kevra {

enum class Resource { MainFrame, SubFrame, Style, Script, Image, Font, Media, Other };
enum class Remote { Off, On };

/// The folders a page may take its parts from, without trailing separators.
struct PageScope {
    std::string folder;
    std::string site; ///< the same folder or one above it
};

struct PageRequest {
    Resource kind = Resource::Other;
    std::string scheme; ///< lower case
    std::string path; ///< of a local file: absolute, with links and ".." resolved
    bool sends = false; ///< more than a question: a form's content, say
};

/// Whether the program wants another page is decided before it is navigated to; this is about where from. The
/// engine itself has no way to the network, see docs/decisions/preview-barrier.md.
[[nodiscard]] bool allowsRequest(const PageRequest &request, const PageScope &scope, Remote remote);

/// `folder`, and as its site the highest folder above it that can be reached through folders with an index
/// page of their own; never `home` or a folder around it.
[[nodiscard]] PageScope scopeOf(const std::string &folder, const FileReader &files, std::string_view home);

} // namespace kevra
