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
    script::Level level = script::Level::Warning; ///< the lowest level to print
    AnalysisFormat format = AnalysisFormat::Text;
    std::string
        site; ///< the folder for addresses of pages that begin with '/'; empty: such addresses are skipped
    bool fix = false; ///< write the files with the first fix of each finding
    std::optional<Encoding> encoding; ///< unset: detected for each file
};

/// Prints the findings and returns the program's exit code.
[[nodiscard]] int runAnalyse(const AnalyseOptions &options);
[[nodiscard]] int runExplain(const std::string &code);

} // namespace kevra
