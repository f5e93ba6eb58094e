// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/command_changes.h"

#include <algorithm>
#include <utility>

namespace kevra {
namespace {

/// A position of the old text in the new one; inside removed text it moves to its start.
Offset moved(Offset position, const TextChange &change)
{
    if (position >= change.position + change.removed)
        return position + change.added - change.removed;
    return std::min(position, change.position);
}

} // namespace

bool CommandChanges::begin(EditKind kind)
{
    if (std::exchange(m_inCommand, true))
        return false;
    m_kind = kind;
    return true;
}

std::optional<TextRange> CommandChanges::end()
{
    m_inCommand = false;
    m_kind = EditKind::Program;
    return std::exchange(m_touched, std::nullopt);
}

std::optional<TextChange> CommandChanges::settle(std::optional<Offset> added)
{
    auto change = std::exchange(m_announced, std::nullopt);
    if (change && added)
        change->added = *added;
    if (!change || (change->removed == 0 && change->added == 0))
        return std::nullopt;
    touch(*change);
    return change;
}

void CommandChanges::touch(TextChange change)
{
    const TextRange fresh{change.position, change.position + change.added};
    m_touched = !m_touched ? fresh
                           : TextRange{std::min(moved(m_touched->start, change), fresh.start),
                               std::max(moved(m_touched->end, change), fresh.end)};
}

} // namespace kevra
