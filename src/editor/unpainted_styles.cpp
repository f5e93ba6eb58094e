// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/unpainted_styles.h"

#include <algorithm>
#include <utility>

namespace kevra {

void UnpaintedStyles::keep(Offset start, std::string styles)
{
    m_start = start;
    m_styles = std::move(styles);
    m_taken = 0;
}

void UnpaintedStyles::clear()
{
    keep(nowhere, {});
    m_styles.shrink_to_fit();
}

char UnpaintedStyles::styleAt(Offset position) const
{
    return m_styles[m_taken + static_cast<std::size_t>(position - m_start)];
}

std::string_view UnpaintedStyles::styles(TextRange range) const
{
    return std::string_view(m_styles).substr(
        m_taken + static_cast<std::size_t>(range.start - m_start), static_cast<std::size_t>(range.length()));
}

std::optional<UnpaintedStyles::Stretch> UnpaintedStyles::takeNext(Offset end)
{
    if (m_start >= end)
        return std::nullopt;
    const Stretch taken{m_start, styles({m_start, std::min(m_start + slice, end)})};
    m_taken += taken.styles.size();
    m_start += std::ssize(taken.styles);
    return taken;
}

bool UnpaintedStyles::isFarBelow(TextRange seen) const
{
    return seen.end > m_start + slice && seen.length() <= slice;
}

void UnpaintedStyles::shift(Offset by)
{
    if (m_start != nowhere)
        m_start += by;
}

} // namespace kevra
