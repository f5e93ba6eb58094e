// SPDX-License-Identifier: GPL-3.0-or-later
// Names that differ by a slip of the fingers.
#pragma once

#include <span>
#include <string_view>

namespace kevra::script {

/// Whether one letter was changed, added, left out, or swapped with its neighbour, letters in either case.
/// Names that are the same are not a slip, nor are pairs such as file1 and file2, or file and files.
[[nodiscard]] bool isSlip(std::string_view written, std::string_view meant);

/// The first of `names` that `written` is a slip for; empty where there is none.
[[nodiscard]] std::string_view nearest(std::string_view written, std::span<const std::string_view> names);

} // namespace kevra::script
