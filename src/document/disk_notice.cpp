// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/disk_notice.h"

#include <utility>

namespace kevra {
namespace {

std::string_view textOf(DiskState state)
{
    switch (state) {
    case DiskState::Changed:
        return "The file on disk has been changed by another program.";
    case DiskState::Gone:
        return "The file is no longer on disk.";
    case DiskState::Unchanged:
        break;
    }
    return {};
}

} // namespace

DiskNotice::DiskNotice(const DocumentFile &file)
    : m_file(file)
{
}

std::optional<std::string_view> DiskNotice::next(std::string_view box)
{
    const auto state = m_file.diskState();
    const auto before = std::exchange(m_state, state);
    const auto stamp = m_file.stampOnDisk();
    const bool sameFile = std::exchange(m_stamp, stamp) == stamp;
    if (state == DiskState::Unchanged)
        return before != state && box == textOf(before) ? std::optional(textOf(state)) : std::nullopt;
    return before == state && sameFile ? std::nullopt : std::optional(textOf(state));
}

} // namespace kevra
