// SPDX-License-Identifier: GPL-3.0-or-later
// The notice in the information box that another program has changed or removed the document's file.
#pragma once

#include "document/document_file.h"

#include <optional>
#include <string_view>

namespace kevra {

class DiskNotice {
public:
    explicit DiskNotice(const DocumentFile &file);

    /// The new text of the box, which now shows `box`. Each disk state is announced once, and a notice that
    /// no longer applies is cleared. Nothing when the box should not change.
    [[nodiscard]] std::optional<std::string_view> next(std::string_view box);
    /// Whether the last check found the file changed or gone.
    [[nodiscard]] bool isCurrent() const { return m_state != DiskState::Unchanged; }

private:
    const DocumentFile &m_file;
    DiskState m_state = DiskState::Unchanged;
    std::optional<FileStamp> m_stamp;
};

} // namespace kevra
