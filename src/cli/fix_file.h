// SPDX-License-Identifier: GPL-3.0-or-later
// Applies the fixes of a file's findings and writes the file.
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
    bool written = true; ///< false when a write was needed and failed
};

/// `bytes` is the content of the file at `path`. The file is written only when something was fixed, and keeps
/// its encoding and line ends. `encoding`, if given, replaces detection.
[[nodiscard]] FixedFile fixFile(const std::string &path, std::string_view bytes,
    std::optional<Encoding> encoding,
    const std::function<std::vector<script::Finding>(std::string_view)> &analysis);

} // namespace kevra
