// SPDX-License-Identifier: GPL-3.0-or-later
// Which line of a text before editing each line of the text after editing comes from.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace kevra {

/// For each line of `after`: the line of `before` that it is, or whose place it took. Unedited lines keep
/// theirs.
[[nodiscard]] std::vector<std::optional<std::size_t>> matchLines(
    const std::vector<std::string_view> &before, const std::vector<std::string_view> &after);

} // namespace kevra
