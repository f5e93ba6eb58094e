// SPDX-License-Identifier: GPL-3.0-or-later
// A text in its colours, as the command line prints it.
#pragma once

#include "text/types.h"

#include <span>
#include <string>
#include <string_view>

namespace kevra {

enum class ColourFormat { Html, Ansi, Runs };

/// `runs` in order and without overlaps. HTML is a whole page, ANSI has 24-bit terminal colours, runs are
/// lines of start, length and colour in characters. HTML and ANSI have their line ends as a single line feed.
[[nodiscard]] std::string colourReport(
    std::string_view text, std::span<const ColourRun> runs, std::string_view title, ColourFormat format);

} // namespace kevra
