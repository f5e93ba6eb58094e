// SPDX-License-Identifier: GPL-3.0-or-later
// kevra-cli analyse and explain.
#pragma once

#include "cli/analyse_report.h"
#include "encoding/character_sets.h"

#include <optional>
#include <string>
#include <vector>

namespace kevra {

struct AnalyseOptions {
    std::vector<std::string> paths; ///< files, folders, or - for standard input
    script::Level level = script::Level::Warning; ///< the least to be printed
    AnalysisFormat format = AnalysisFormat::Text;
    bool fix = false; ///< write the files with the first fix of each finding
    std::optional<Encoding> encoding; ///< found out for each file where none is named
};

/// Prints what it finds; the result is the program's exit code.
[[nodiscard]] int runAnalyse(const AnalyseOptions &options);
[[nodiscard]] int runExplain(const std::string &code);

} // namespace kevra
