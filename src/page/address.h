// SPDX-License-Identifier: GPL-3.0-or-later
// Where the addresses in a page lead on this machine.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kevra::page {

/// Where a page stands. Folders are without a separator at their end.
struct PageFolders {
    std::string folder; ///< empty: the page has no place yet
    std::string site; ///< what begins with '/' is looked for here; empty: not known
};

struct LocalTarget {
    std::string path; ///< empty: the page itself
    std::string fragment; ///< as written, without '#'
};

class Addresses {
public:
    /// `base` is what the page's base element says; empty: it is not known.
    Addresses(PageFolders folders, std::optional<std::string_view> base);

    /// Nothing for what leads to another machine or is no address of a file, and where it cannot be told.
    [[nodiscard]] std::optional<LocalTarget> local(std::string_view address) const;

private:
    [[nodiscard]] std::optional<std::string> pathOf(std::string_view address) const;

    PageFolders m_folders;
    bool m_hasBase = false;
};

/// "%20" and the like as bytes; what is not followed by two digits stays.
[[nodiscard]] std::string percentDecoded(std::string_view text);

} // namespace kevra::page
