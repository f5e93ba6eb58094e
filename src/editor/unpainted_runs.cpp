// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/unpainted_runs.h"

#include <algorithm>

namespace kevra {

bool UnpaintedRuns::canKeep(std::span<const ColourRun> runs)
{
    Offset last = 0;
    return std::ranges::all_of(runs, [&](const ColourRun &run) {
        const bool follows = run.range.start >= last && run.range.start <= run.range.end;
        last = run.range.end;
        return follows && last <= std::numeric_limits<std::int32_t>::max();
    });
}

void UnpaintedRuns::keep(Offset start, std::span<const ColourRun> runs, std::span<const char> styles)
{
    clear();
    m_start = start;
    m_runs.reserve(runs.size());
    for (std::size_t i = 0; i < runs.size(); ++i)
        m_runs.push_back({static_cast<std::int32_t>(runs[i].range.start),
            static_cast<std::int32_t>(runs[i].range.end), styles[i]});
    m_next = firstEndingBehind(start);
}

void UnpaintedRuns::clear()
{
    m_start = nowhere;
    m_shift = 0;
    m_next = 0;
    m_runs = {};
}

std::size_t UnpaintedRuns::firstEndingBehind(Offset position) const
{
    const auto behind = [&](const Run &run) { return run.end + m_shift <= position; };
    const auto from = m_runs.begin() + static_cast<std::ptrdiff_t>(m_next);
    return static_cast<std::size_t>(std::partition_point(from, m_runs.end(), behind) - m_runs.begin());
}

char UnpaintedRuns::styleAt(Offset position) const
{
    const auto index = firstEndingBehind(position);
    return index < m_runs.size() && m_runs[index].start + m_shift <= position ? m_runs[index].style : '\0';
}

std::string UnpaintedRuns::takeUpTo(Offset end)
{
    std::string styles(static_cast<std::size_t>(std::max<Offset>(end - m_start, 0)), '\0');
    for (; m_next < m_runs.size() && m_runs[m_next].start + m_shift < end; ++m_next) {
        const auto &run = m_runs[m_next];
        const auto from = std::max(run.start + m_shift, m_start) - m_start;
        const auto to = std::min(run.end + m_shift, end) - m_start;
        std::fill(styles.begin() + from, styles.begin() + to, run.style);
        if (run.end + m_shift > end)
            break;
    }
    m_start = std::max(m_start, end);
    return styles;
}

void UnpaintedRuns::shift(Offset by)
{
    if (m_start == nowhere)
        return;
    m_start += by;
    m_shift += by;
}

} // namespace kevra
