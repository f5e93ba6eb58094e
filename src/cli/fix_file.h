// SPDX-License-Identifier: GPL-3.0-or-later
// One file put right by the fixes of its findings, and written.
#pragma once

#include "encoding/character_sets.h"
#include "script/finding.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

struct FixedFile {
    std::string text; ///< as it is on the disk now
    std::vector<script::Finding> findings; ///< in that text
    std::vector<std::string> report; ///< lines for standard error: what was fixed, or why it was not
    bool written = true; ///< false where it should have been and could not
};

/// `bytes` are what the file at `path` holds; it is written only when there is something to fix, in its own
/// character set and line ends. `encoding` is the one named for it.
[[nodiscard]] FixedFile fixFile(const std::string &path, std::string_view bytes,
    std::optional<Encoding> encoding,
    const std::function<std::vector<script::Finding>(std::string_view)> &analysis);

} // namespace kevra
