// SPDX-License-Identifier: GPL-3.0-or-later
// Matches the lines of an edited text with the lines before editing.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace kevra {

/// For each line of `after`: the index of the line of `before` that it equals or replaces; nothing for an
/// inserted line.
[[nodiscard]] std::vector<std::optional<std::size_t>> matchLines(
    const std::vector<std::string_view> &before, const std::vector<std::string_view> &after);

} // namespace kevra
