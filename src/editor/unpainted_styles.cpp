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

std::string_view UnpaintedStyles::takeUpTo(Offset end)
{
    const auto taken = std::string_view(m_styles).substr(m_taken, static_cast<std::size_t>(end - m_start));
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
