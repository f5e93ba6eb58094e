// SPDX-License-Identifier: GPL-3.0-or-later
// The files of this machine. Only this class writes a user's files.
#pragma once

#include "storage/file_store.h"

#include <set>

namespace kevra {

class FileStorePosix : public FileStore {
public:
    /// `stateFolder` holds safety copies while a file is written in place. `documents` is the user's
    /// documents folder.
    FileStorePosix(std::string stateFolder, std::string documents);

    [[nodiscard]] bool fileExists(const std::string &path) const override;
    [[nodiscard]] bool folderExists(const std::string &path) const override;
    [[nodiscard]] std::optional<FileStamp> stamp(const std::string &path) const override;
    [[nodiscard]] std::optional<std::string> read(const std::string &path) const override;
    [[nodiscard]] WriteOutcome write(const std::string &path, std::string_view bytes) override;
    [[nodiscard]] WriteOutcome writeDocument(const std::string &path, std::string_view bytes,
        ReadOnlyFiles readOnly, const Replaced &replaced) override;
    [[nodiscard]] std::string safetyCopy() const override { return m_safetyCopy; }
    [[nodiscard]] WriteOutcome writeBackup(
        const std::string &original, const std::string &path, std::string_view bytes) override;
    [[nodiscard]] WriteOutcome writePrivate(const std::string &path, std::string_view bytes) override;
    bool remove(const std::string &path) override;
    [[nodiscard]] bool rename(const std::string &from, const std::string &to) override;
    /// POSIX file systems have no hidden attribute.
    void setHidden(const std::string &, bool) override { }

private:
    [[nodiscard]] WriteOutcome put(const std::string &path, std::string_view bytes, const Replaced &replaced);
    [[nodiscard]] WriteOutcome putOverReadOnly(
        const std::string &path, std::string_view bytes, const Replaced &replaced);
    [[nodiscard]] WriteOutcome putInPlace(
        const std::string &target, std::string_view bytes, const Replaced &replaced);

    [[nodiscard]] std::string native(const std::string &path) const;

    std::string m_stateFolder;
    std::string m_documents;
    std::string m_safetyCopy;
    std::set<std::string> m_cleanedFolders; ///< folders already cleared of temporary files
};

} // namespace kevra
