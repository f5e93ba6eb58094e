// SPDX-License-Identifier: GPL-3.0-or-later
// The checker's findings in a file, in the formats of the command line.
#pragma once

#include "checker/finding.h"

#include <string>
#include <string_view>
#include <vector>

namespace kevra {

enum class CheckFormat { Text, Gcc, Json };

struct CheckedFile {
    std::string name;
    std::vector<Finding> findings; ///< empty: no faults
};

/// One line per finding, with its line break. A file without findings is reported only in text and JSON.
[[nodiscard]] std::string checkReport(const CheckedFile &file, CheckFormat format);

} // namespace kevra
