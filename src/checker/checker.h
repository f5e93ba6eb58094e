// SPDX-License-Identifier: GPL-3.0-or-later
// A run of the checker: the line rules on every complete line, then the blocks, then the object references.
// The first fault found is the verdict.
#pragma once

#include "checker/fault.h"
#include "text/types.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

struct CheckResult {
    std::string verdict = "OK";
    std::optional<Fault> fault; ///< the line that is marked, if the verdict is about one
    /// Text follows the faulty line: the document is recoloured before the line is marked.
    bool recolourBeforeMark = false;
    bool reachedBlocks = false; ///< every line passed, so the blocks were counted
};

/// Checks a script. The cost is a few passes over the text.
[[nodiscard]] CheckResult check(std::string_view text, bool ifChecking);

/// Every fault: of all lines, then all kinds of blocks, which have no line, then all object references.
[[nodiscard]] std::vector<Fault> checkAll(std::string_view text, bool ifChecking);

/// The line, from 1, that a fault's text names at its end; nothing when it is about the whole script.
[[nodiscard]] std::optional<Offset> lineNamedBy(std::string_view fault);

} // namespace kevra
