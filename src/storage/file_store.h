// SPDX-License-Identifier: GPL-3.0-or-later
// Files as the commands need them. Paths are bytes as the file system has them; '/' and '\' both separate.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kevra {

enum class Saved {
    Ok,
    NotAFile, ///< a folder, device, FIFO or socket stands there
    Denied,
    DiskFull,
    Failed,
    Torn, ///< the file holds a mixture; what belongs there lies in the safety copy
};

/// Why nothing was saved, as the end of a sentence.
[[nodiscard]] constexpr std::string_view reason(Saved saved)
{
    switch (saved) {
    case Saved::NotAFile:
        return "it is not a regular file";
    case Saved::Denied:
        return "it may not be written";
    case Saved::DiskFull:
        return "the disk is full";
    case Saved::Torn:
        return "it could be written only in part";
    case Saved::Ok:
    case Saved::Failed:
        break;
    }
    return "it cannot be written";
}

/// Tells one state of a file from another: it differs after any write.
struct FileStamp {
    std::int64_t modified = 0; ///< nanoseconds since 1970
    std::int64_t size = 0; ///< bytes
    std::uint64_t identity = 0; ///< inode
    /// Nanoseconds since 1970 of the last change to anything about the file, a new name included. Only a
    /// reason to look at the content: not compared.
    std::int64_t touched = 0;

    friend bool operator==(const FileStamp &a, const FileStamp &b)
    {
        return a.modified == b.modified && a.size == b.size && a.identity == b.identity;
    }
};

class FileStore {
public:
    virtual ~FileStore() = default;
    [[nodiscard]] virtual bool fileExists(
        const std::string &path) const = 0; ///< a regular file, links followed
    [[nodiscard]] virtual bool folderExists(const std::string &path) const = 0;
    [[nodiscard]] virtual std::optional<FileStamp> stamp(const std::string &path) const = 0;
    /// The bytes of a regular file; nothing when it cannot be read whole.
    [[nodiscard]] virtual std::optional<std::string> read(const std::string &path) const = 0;
    /// Afterwards the file holds either its old bytes or all the new ones.
    [[nodiscard]] virtual Saved write(const std::string &path, std::string_view bytes) = 0;
    /// As write(), also over a read-only file: somebody agreed to replace it.
    [[nodiscard]] virtual Saved replace(const std::string &path, std::string_view bytes)
    {
        return write(path, bytes);
    }
    /// Sees the content that a save takes the place of.
    using Replaced = std::function<void(std::string_view bytes)>;
    /// As write(), or as replace() when `overReadOnly`. `replaced` is called at the last moment, so that no
    /// other program's save gets lost between a look at the file and its replacement.
    [[nodiscard]] virtual Saved save(
        const std::string &path, std::string_view bytes, bool overReadOnly, const Replaced &replaced)
    {
        if (const auto there = read(path))
            replaced(*there);
        return overReadOnly ? replace(path, bytes) : write(path, bytes);
    }
    /// Where the old and the new bytes lie that the last save could write only in part; empty otherwise.
    [[nodiscard]] virtual std::string safetyCopy() const { return {}; }
    /// As write(), a new file that is no more open to others than `original` is.
    [[nodiscard]] virtual Saved writeCopy(
        const std::string & /*original*/, const std::string &path, std::string_view bytes)
    {
        return write(path, bytes);
    }
    /// As write(), a file of the program's own: nobody but its owner can read it.
    [[nodiscard]] virtual Saved writePrivate(const std::string &path, std::string_view bytes)
    {
        return write(path, bytes);
    }
    /// Also read-only files. True when no such file is there afterwards.
    virtual bool remove(const std::string &path) = 0;
    /// Gives a file another name in its folder, everything else about it unchanged; false, with nothing done,
    /// when something has that name.
    [[nodiscard]] virtual bool rename(const std::string &from, const std::string &to) = 0;
    /// Sets or clears the hidden attribute where the platform has one.
    virtual void setHidden(const std::string &path, bool hidden) = 0;
};

} // namespace kevra
