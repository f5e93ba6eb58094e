// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/character_count.h"

#include "text/words.h"

#include <algorithm>

namespace kevra {

Offset CharacterCount::all() const
{
    if (!m_all)
        m_all = characterCount(m_surface.Text());
    return *m_all;
}

Offset CharacterCount::between(Offset lineStart, Offset position) const
{
    if (lineStart != m_counted.lineStart)
        m_counted = {lineStart, lineStart, 0};
    countTo(position);
    return m_counted.characters;
}

void CharacterCount::aboutToChange(Offset position)
{
    if (position < m_counted.lineStart)
        m_counted = {};
    else if (position < m_counted.position)
        countTo(position);
}

void CharacterCount::aboutToRemove(TextRange range)
{
    if (m_all)
        *m_all -= characterCount(m_surface.Text(range));
}

void CharacterCount::inserted(TextRange range)
{
    if (m_all)
        *m_all += characterCount(m_surface.Text(range));
}

void CharacterCount::countTo(Offset position) const
{
    constexpr Offset step = Offset{64} * 1024; // so that a part of the text is copied at most
    if (position - m_counted.lineStart < m_counted.position - position)
        m_counted = {m_counted.lineStart, m_counted.lineStart, 0};
    while (m_counted.position < position) {
        const auto end = std::min(m_counted.position + step, position);
        m_counted.characters += characterCount(m_surface.Text({m_counted.position, end}));
        m_counted.position = end;
    }
    if (position < m_counted.position)
        m_counted.characters -= characterCount(m_surface.Text({position, m_counted.position}));
    m_counted.position = position;
}

} // namespace kevra
