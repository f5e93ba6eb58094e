// SPDX-License-Identifier: GPL-3.0-or-later
// Files as the commands need them. Paths are file system bytes; both '/' and '\' are separators.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kevra {

enum class WriteOutcome {
    Ok,
    NotAFile, ///< the path is a folder, device, FIFO or socket
    Denied,
    DiskFull,
    Failed,
    Torn, ///< the file holds a mix of old and new bytes; the safety copy has both
};

/// Why nothing was saved, as the end of a sentence.
[[nodiscard]] constexpr std::string_view reason(WriteOutcome saved)
{
    switch (saved) {
    case WriteOutcome::NotAFile:
        return "it is not a regular file";
    case WriteOutcome::Denied:
        return "it may not be written";
    case WriteOutcome::DiskFull:
        return "the disk is full";
    case WriteOutcome::Torn:
        return "it could be written only in part";
    case WriteOutcome::Ok:
    case WriteOutcome::Failed:
        break;
    }
    return "it cannot be written";
}

/// Identifies a state of a file; it differs after any write.
struct FileStamp {
    std::int64_t modified = 0; ///< nanoseconds since 1970
    std::int64_t size = 0; ///< bytes
    std::uint64_t identity = 0; ///< inode
    /// Nanoseconds since 1970 of the last change to content or metadata (ctime). Not compared: a change only
    /// means that the content should be checked.
    std::int64_t touched = 0;

    friend bool operator==(const FileStamp &a, const FileStamp &b)
    {
        return a.modified == b.modified && a.size == b.size && a.identity == b.identity;
    }
};

class FileReader {
public:
    virtual ~FileReader() = default;
    /// A regular file, links followed.
    [[nodiscard]] virtual bool fileExists(const std::string &path) const = 0;
    [[nodiscard]] virtual bool folderExists(const std::string &path) const = 0;
    [[nodiscard]] virtual std::optional<FileStamp> stamp(const std::string &path) const = 0;
    /// The bytes of a regular file; nothing when it cannot be read completely.
    [[nodiscard]] virtual std::optional<std::string> read(const std::string &path) const = 0;
};

enum class ReadOnlyFiles { Refuse, Replace };

class FileStore : public FileReader {
public:
    /// Afterwards the file holds either its old bytes or all the new ones. Read-only files are refused.
    [[nodiscard]] virtual WriteOutcome write(const std::string &path, std::string_view bytes) = 0;
    /// Receives the content that is replaced.
    using Replaced = std::function<void(std::string_view bytes)>;
    /// As write(). `replaced`, which may be empty, is called as late as possible, so that another program's
    /// save just before the replacement is not lost.
    [[nodiscard]] virtual WriteOutcome writeDocument(
        const std::string &path, std::string_view bytes, ReadOnlyFiles readOnly, const Replaced &replaced)
        = 0;
    /// The file with the old and new bytes of the last document if that was Torn; empty otherwise.
    [[nodiscard]] virtual std::string safetyCopy() const = 0;
    /// As write(), for a new file that is no more accessible to others than `original`.
    [[nodiscard]] virtual WriteOutcome writeBackup(
        const std::string &original, const std::string &path, std::string_view bytes)
        = 0;
    /// As write(), for the program's own files: readable only by the owner.
    [[nodiscard]] virtual WriteOutcome writePrivate(const std::string &path, std::string_view bytes) = 0;
    /// Also removes read-only files. True when the file does not exist afterwards.
    [[nodiscard]] virtual bool remove(const std::string &path) = 0;
    /// Renames a file within its folder and keeps its metadata. False, with nothing done, when the new name
    /// is taken.
    [[nodiscard]] virtual bool rename(const std::string &from, const std::string &to) = 0;
    /// Sets or clears the hidden attribute where the platform has one.
    virtual void setHidden(const std::string &path, bool hidden) = 0;
};

} // namespace kevra
