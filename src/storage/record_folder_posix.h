// SPDX-License-Identifier: GPL-3.0-or-later
// A folder of recovery records. Each running instance has a number in it and holds a lock on that number, so
// that files of a dead instance can be recognised.
#pragma once

#include "storage/file_handle_posix.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kevra {

class RecordFolder {
public:
    /// A shared folder is in a place where others can write too; it is used only if this user owns it.
    enum class Place { Private, Shared };
    RecordFolder(std::string path, Place place);

    [[nodiscard]] const std::string &path() const { return m_path; }
    /// Whether the folder exists and may be used.
    [[nodiscard]] bool exists() const;
    /// Creates the folder and takes a number, once. Without a number nothing can be stored.
    [[nodiscard]] WriteOutcome open();
    [[nodiscard]] int number() const { return m_number; } ///< 0 before open()
    [[nodiscard]] std::string file(int number, const char *kind) const;
    [[nodiscard]] std::string ownFile(const char *kind) const { return file(m_number, kind); }
    /// Takes the lock of another instance's number; nothing while that instance runs.
    [[nodiscard]] FileHandle lock(int number) const;
    /// The instance numbers of all files in the folder.
    [[nodiscard]] std::vector<int> numbers() const;
    /// Renames `file` so that the next start offers it, in the order of `sequence`.
    [[nodiscard]] bool setAside(
        const std::string &file, std::uint64_t sequence, int number, const char *kind) const;
    void close(); ///< releases the number

private:
    [[nodiscard]] FileHandle openLock(int number) const;

    std::string m_path;
    Place m_place;
    int m_number = 0;
    FileHandle m_lock;
};

/// Locks the file until the handle is closed or the process ends. False when the file is locked already, was
/// unlinked or is not a regular file.
[[nodiscard]] bool takeLock(const FileHandle &file);
/// The number in "7.lock", "7.record", "7.crash", "7.autosave" or "autosave-7.txt"; 1 for "autosave.txt". 0
/// for any other name.
[[nodiscard]] int numberIn(std::string name);
/// The sequence number in a name given by setAside(); nothing for others.
[[nodiscard]] std::optional<std::uint64_t> asideSequence(const std::string &name);

} // namespace kevra
