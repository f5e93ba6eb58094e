// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <future>
#include <string_view>

namespace kevra {

/// What `compute` makes of a text. For a large text it starts at once, on another core where there is one;
/// for a small text it waits until the result is asked for. The text must stay until the result is there or
/// gone.
template <typename Compute> auto startComputing(std::string_view text, Compute compute)
{
    constexpr std::size_t worthThread = std::size_t{256} * 1024;
    const auto policy
        = text.size() < worthThread ? std::launch::deferred : std::launch::async | std::launch::deferred;
    return std::async(policy, compute);
}

} // namespace kevra
