// SPDX-License-Identifier: GPL-3.0-or-later
// The checker's faults in a file, in the formats of the command line.
#pragma once

#include "checker/fault.h"

#include <string>
#include <string_view>
#include <vector>

namespace kevra {

enum class CheckFormat { Text, Gcc, Json };

struct CheckedFile {
    std::string name;
    std::vector<Fault> faults; ///< empty: none
};

/// One line per fault, with its line break. A file without faults is reported only in text and JSON.
[[nodiscard]] std::string checkReport(const CheckedFile &file, CheckFormat format);

} // namespace kevra
