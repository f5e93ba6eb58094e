// SPDX-License-Identifier: GPL-3.0-or-later
// Open files of the operating system, and what its calls report, for the one reader and the one writer.
#pragma once

#include "storage/file_store.h"

#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace kevra {

class FileHandle {
public:
    FileHandle() = default;
    explicit FileHandle(int descriptor)
        : m_descriptor(descriptor)
    {
    }
    FileHandle(FileHandle &&other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1))
    {
    }
    FileHandle &operator=(FileHandle &&other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~FileHandle()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }

    explicit operator bool() const { return m_descriptor >= 0; }
    [[nodiscard]] int get() const { return m_descriptor; }

private:
    int m_descriptor = -1;
};

/// open(2) in `folder`, a descriptor or AT_FDCWD, repeated when a signal comes between; never waits for the
/// other end of a FIFO and never becomes a terminal's owner.
[[nodiscard]] FileHandle openFile(
    const std::string &path, int flags, mode_t mode = 0, int folder = -100 /* AT_FDCWD */);
/// False, with errno set, unless every byte was taken.
[[nodiscard]] bool writeAll(int descriptor, std::string_view bytes, off_t at);
/// The rest of the file; nothing on a read error.
[[nodiscard]] std::optional<std::string> readAll(int descriptor);
/// fsync(2); file systems that have nothing to synchronise count as done.
[[nodiscard]] bool synchronise(int descriptor);
/// What a failed call means for a save, by errno.
[[nodiscard]] Saved savedFromErrno();
/// The file that `path` means with its last link followed, also a link to a file that is not there yet;
/// empty when the links go in a circle.
[[nodiscard]] std::string linkTarget(const std::string &path);
/// The folder part of `path` for open(2): "." when there is none.
[[nodiscard]] std::string folderOf(const std::string &path);
[[nodiscard]] std::string nameOf(const std::string &path);
/// Without "." and ".."; none when the folder cannot be read.
[[nodiscard]] std::vector<std::string> namesIn(const std::string &folder);
/// Nothing for what is no regular file, or for a link to one.
[[nodiscard]] std::optional<std::string> regularContent(const std::string &path);
/// Something has this name, and it is no regular file.
[[nodiscard]] bool isOddFile(const std::string &path);

} // namespace kevra
