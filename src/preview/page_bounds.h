// SPDX-License-Identifier: GPL-3.0-or-later
// How much of the machine a previewed page can have.
#pragma once

#include <cstdint>

namespace kevra {

/// So many a second; what comes beyond is left out.
class RateLimit {
public:
    explicit constexpr RateLimit(int perSecond)
        : m_perSecond(perSecond)
    {
    }
    /// `now` in milliseconds of a clock that never goes back.
    [[nodiscard]] constexpr bool allows(std::int64_t now)
    {
        if (now - m_start >= second) {
            m_start = now;
            m_count = 0;
        }
        return ++m_count <= m_perSecond;
    }

private:
    static constexpr std::int64_t second = 1000;
    int m_perSecond;
    int m_count = 0;
    std::int64_t m_start = -second;
};

namespace bounds {
constexpr int navigations = 100; ///< a second, those of frames among them
constexpr int refusedNavigations = 300; ///< beyond the limit; then the page is ended
constexpr int links = 10; ///< shown a second
constexpr int messages = 50; ///< of the page beside the text, a second
constexpr int accessibilityEvents = 200; ///< a second

// Bytes. Memory is measured at intervals; a page above a bound is ended, so early that it has no time to
// reach two gigabytes.
constexpr std::int64_t editorGrowth = std::int64_t{256} << 20;
constexpr std::int64_t pageProcesses = std::int64_t{1700} << 20;
/// What pages leave in the editor before it is taken from them all.
constexpr std::int64_t profileGrowth = std::int64_t{32} << 20;
} // namespace bounds

struct PageMemory {
    std::int64_t editorGrowth = 0; ///< since the page was asked for
    std::int64_t pageProcesses = 0; ///< all of them together
};

[[nodiscard]] constexpr bool isTooMuch(const PageMemory &used)
{
    return used.editorGrowth > bounds::editorGrowth || used.pageProcesses > bounds::pageProcesses;
}

} // namespace kevra
