// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/unpainted_styles.h"

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

std::string_view UnpaintedStyles::takeUpTo(Offset end)
{
    const auto taken = styles({m_start, end});
    m_taken += taken.size();
    m_start = end;
    return taken;
}

void UnpaintedStyles::shift(Offset by)
{
    if (m_start != nowhere)
        m_start += by;
}

} // namespace kevra
