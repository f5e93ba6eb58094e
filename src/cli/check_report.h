// SPDX-License-Identifier: GPL-3.0-or-later
// What the checker has found in a file, in the words and formats of the command line.
#pragma once

#include "checker/finding.h"

#include <string>
#include <string_view>
#include <vector>

namespace kevra {

enum class CheckFormat { Text, Gcc, Json };

struct CheckedFile {
    std::string name;
    std::vector<Finding> findings; ///< none: the script is in order
};

/// One line a finding, each with its line break; what is in order is told only in text and JSON.
[[nodiscard]] std::string checkReport(const CheckedFile &file, CheckFormat format);

} // namespace kevra
