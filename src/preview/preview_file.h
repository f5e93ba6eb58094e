// SPDX-License-Identifier: GPL-3.0-or-later
// The temporary page on the disk. A file of its name that this run did not write is set aside before the
// preview and gets its name back afterwards.
#pragma once

#include "files/backup_store.h"
#include "files/file_store.h"

#include <optional>
#include <string>
#include <string_view>

namespace kevra {

inline constexpr auto previewPageName = "kevratemp.html";

class PreviewFile {
public:
    PreviewFile(FileStore &files, BackupStore &backups);

    /// Hidden afterwards. False when it could not be written; what was there before is there again then.
    [[nodiscard]] bool write(const std::string &path, std::string_view bytes);
    /// Deletes the page, unless somebody has written another file to its place, and puts back what was set
    /// aside.
    void remove();

private:
    [[nodiscard]] bool isOurs(const std::string &path) const;
    [[nodiscard]] bool setAside(const std::string &path);
    void putBack();

    FileStore &m_files;
    BackupStore &m_backups;
    std::string m_path; ///< empty while there is no page
    std::string m_aside; ///< the name of what was there before; empty when nothing was
    std::optional<FileStamp> m_stamp;
};

} // namespace kevra
