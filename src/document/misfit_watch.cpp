// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/misfit_watch.h"

#include "encoding/transcoding.h"

namespace kevra {

MisfitWatch::MisfitWatch(const EditorSurface &surface)
    : m_surface(surface)
{
}

bool MisfitWatch::encodesEverything() const
{
    return isUnicode(m_format.encoding);
}

void MisfitWatch::restart(const TextFormat &format)
{
    m_format = format;
    m_character.clear();
    m_known = encodesEverything();
}

void MisfitWatch::textRead(const TextFormat &format)
{
    restart(format);
    m_known = true;
}

void MisfitWatch::textChanged(Offset position, Offset removed, Offset added)
{
    if (encodesEverything() || !m_known)
        return;
    if (!m_character.empty() && m_position >= position + removed)
        m_position += added - removed;
    else if (!m_character.empty() && m_position + std::ssize(m_character) > position)
        m_known = false;
    if (m_character.empty() && added > 0)
        scan({position, position + added});
}

std::string MisfitWatch::misfit()
{
    if (!m_known) {
        m_character.clear();
        scan({0, m_surface.TextLength()});
        m_known = true;
    }
    return m_character;
}

void MisfitWatch::scan(TextRange range)
{
    const auto text = m_surface.Text(range);
    const auto raw = m_format.rawBytes ? RawBytes::Escaped : RawBytes::None;
    const auto found = firstMisfit(text, m_format.encoding, raw);
    if (found.empty())
        return;
    m_character = found;
    m_position = range.start + (found.data() - text.data());
}

} // namespace kevra
