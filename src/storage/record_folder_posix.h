// SPDX-License-Identifier: GPL-3.0-or-later
// A folder of recovery records. Each running program has a number in it, with a lock that ends with the
// program, so that what a dead one left is told from what a live one writes.
#pragma once

#include "storage/file_handle_posix.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kevra {

class RecordFolder {
public:
    /// A shared folder stands where others can write too: it is used only while it is a folder of this user.
    enum class Place { Private, Shared };
    RecordFolder(std::string path, Place place);

    [[nodiscard]] const std::string &path() const { return m_path; }
    /// It is there and ours, so that leftovers are looked for.
    [[nodiscard]] bool exists() const;
    /// Makes the folder and takes a number, once. Without one nothing can be kept there.
    [[nodiscard]] Saved open();
    [[nodiscard]] int number() const { return m_number; } ///< 0 before open()
    [[nodiscard]] std::string file(int number, const char *kind) const;
    [[nodiscard]] std::string ownFile(const char *kind) const { return file(m_number, kind); }
    /// The lock of a number that is not ours; nothing while its program runs.
    [[nodiscard]] FileHandle lock(int number) const;
    /// The numbers of all files there.
    [[nodiscard]] std::vector<int> numbers() const;
    /// Gives `file` a name under which the next start offers it, after the text's `sequence`.
    [[nodiscard]] bool setAside(
        const std::string &file, std::uint64_t sequence, int number, const char *kind) const;
    void close(); ///< gives the number back

private:
    [[nodiscard]] FileHandle openLock(int number) const;

    std::string m_path;
    Place m_place;
    int m_number = 0;
    FileHandle m_lock;
};

/// Ends with the handle, and with the program however it ends.
[[nodiscard]] bool takeLock(const FileHandle &file);
/// The number in "7.lock", "7.record", "7.crash", "7.autosave" or "autosave-7.txt"; "autosave.txt" is the
/// first program's. 0 for any other name.
[[nodiscard]] int numberIn(std::string name);
/// Of a file that setAside() has named; nothing for others.
[[nodiscard]] std::optional<std::uint64_t> asideSequence(const std::string &name);

} // namespace kevra
