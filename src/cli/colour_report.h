// SPDX-License-Identifier: GPL-3.0-or-later
// Coloured text, as the command line prints it.
#pragma once

#include "text/types.h"

#include <span>
#include <string>
#include <string_view>

namespace kevra {

enum class ColourFormat { Html, Ansi, Runs };

/// `runs` must be sorted and must not overlap. Html is a complete page. Ansi uses 24-bit terminal colours.
/// Runs is one line per run: start and length in characters, and the colour. Html and Ansi end lines with a
/// single line feed.
[[nodiscard]] std::string colourReport(
    std::string_view text, std::span<const ColourRun> runs, std::string_view title, ColourFormat format);

} // namespace kevra
