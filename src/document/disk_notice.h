// SPDX-License-Identifier: GPL-3.0-or-later
// What the information box says of the document's file when another program has changed or removed it.
#pragma once

#include "document/document_file.h"

#include <optional>
#include <string_view>

namespace kevra {

class DiskNotice {
public:
    explicit DiskNotice(const DocumentFile &file);

    /// What to put into the box, which shows `box` now: each state of the disk is told once, and a notice
    /// that holds no longer is taken back. Nothing when the box is to stay as it is.
    [[nodiscard]] std::optional<std::string_view> next(std::string_view box);
    /// The last notice still held when it was looked at.
    [[nodiscard]] bool stands() const { return m_state != DiskState::Unchanged; }

private:
    const DocumentFile &m_file;
    DiskState m_state = DiskState::Unchanged;
    std::optional<FileStamp> m_stamp;
};

} // namespace kevra
