// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kevra {

/// The text of the line-number column: "01" to "99", "00", then from "01" again, one a line.
[[nodiscard]] std::string lineNumbers(int lines);

} // namespace kevra
