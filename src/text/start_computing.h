// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <future>
#include <string_view>

namespace kevra {

/// The future result of `compute`, which reads `text`. For a large text it starts at once, on another core if
/// there is one; for a small text it runs when the result is requested. The text must outlive the future.
template <typename Compute> auto startComputing(std::string_view text, Compute compute)
{
    constexpr std::size_t minThreadedBytes = std::size_t{256} * 1024;
    const auto policy
        = text.size() < minThreadedBytes ? std::launch::deferred : std::launch::async | std::launch::deferred;
    return std::async(policy, compute);
}

} // namespace kevra
