// SPDX-License-Identifier: GPL-3.0-or-later
// Lookup in tables sorted by name, ignoring case.
#pragma once

#include <algorithm>
#include <span>
#include <string_view>

namespace kevra::script {

[[nodiscard]] constexpr bool comesBefore(std::string_view a, std::string_view b)
{
    constexpr auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::ranges::lexicographical_compare(a, b, {}, lower, lower);
}

[[nodiscard]] constexpr bool inAscendingOrder(const auto &table)
{
    // Strictly: a table has each name once.
    return std::ranges::adjacent_find(table, [](const auto &a, const auto &b) {
        return !comesBefore(a.name, b.name);
    }) == std::ranges::end(table);
}

template <typename Row>
[[nodiscard]] constexpr const Row *findByName(std::span<const Row> table, std::string_view name)
{
    const auto at = std::ranges::lower_bound(table, name, comesBefore, &Row::name);
    return at != table.end() && !comesBefore(name, at->name) ? &*at : nullptr;
}

} // namespace kevra::script
