// SPDX-License-Identifier: GPL-3.0-or-later
// The temporary page on the disk. A file of its name that no program wrote as a page is set aside before the
// preview and gets its name back afterwards: when this program leaves the page, or the last of several that
// show the same folder; after a kill, at the next start or preview.
#pragma once

#include "preview/preview_records.h"
#include "storage/backup_store.h"
#include "storage/file_store.h"

#include <optional>
#include <string>
#include <string_view>

namespace kevra {

class PreviewFile {
public:
    PreviewFile(FileStore &files, BackupStore &backups, PreviewRecords &records);

    /// Hidden afterwards. False when it could not be written; what was there before is there again then.
    [[nodiscard]] bool write(const std::string &path, std::string_view bytes);
    /// Deletes the page, unless somebody has written another file to its place, and puts back what was set
    /// aside.
    void remove();
    /// As remove(), for the pages of programs that have been killed.
    void removeLeftPages();

private:
    [[nodiscard]] bool isOurs(const std::string &path) const;
    [[nodiscard]] bool isPage(const PreviewRecord &record) const;
    [[nodiscard]] bool takenOver() const;
    [[nodiscard]] bool writeAlone(const std::string &path, std::string_view bytes);
    [[nodiscard]] bool setAside();
    void takeOver(const std::string &path);
    void leave();
    void settleKilled();
    void putBack(const PreviewRecord &record);

    FileStore &m_files;
    BackupStore &m_backups;
    PreviewRecords &m_records;
    PreviewRecord m_record; ///< its page is empty while there is none
    std::optional<FileStamp> m_stamp; ///< of the page
};

} // namespace kevra
