// SPDX-License-Identifier: GPL-3.0-or-later
// Detects names that differ by a typing error.
#pragma once

#include <span>
#include <string_view>

namespace kevra::script {

/// Whether one letter was changed, added, left out, or swapped with its neighbour, ignoring case. False for
/// equal names and for pairs such as file1 and file2, or file and files.
[[nodiscard]] bool isSlip(std::string_view written, std::string_view meant);

/// The first of `names` that `written` is a typing error for; empty if there is none.
[[nodiscard]] std::string_view nearest(std::string_view written, std::span<const std::string_view> names);

} // namespace kevra::script
