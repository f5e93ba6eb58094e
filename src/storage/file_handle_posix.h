// SPDX-License-Identifier: GPL-3.0-or-later
// File descriptors and file calls of the operating system, for the classes that read and write files. A call
// that can fail returns the system's error; an empty error is success.
#pragma once

#include "storage/file_store.h"

#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/types.h>
#include <system_error>
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
    explicit FileHandle(std::error_code error)
        : m_error(error)
    {
    }
    FileHandle(FileHandle &&other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1))
        , m_error(other.m_error)
    {
    }
    FileHandle &operator=(FileHandle &&other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        std::swap(m_error, other.m_error);
        return *this;
    }
    ~FileHandle()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }

    explicit operator bool() const { return m_descriptor >= 0; }
    [[nodiscard]] int get() const { return m_descriptor; }
    [[nodiscard]] std::error_code error() const { return m_error; } ///< why it could not be opened

private:
    int m_descriptor = -1;
    std::error_code m_error;
};

/// The error of the system call that has just failed. Nothing may come between the two.
[[nodiscard]] std::error_code lastError();
/// The same for what a system call returned: empty unless it is negative.
[[nodiscard]] std::error_code errorOf(int result);
/// stat(2); nothing on an error.
[[nodiscard]] std::optional<struct stat> statusOf(const std::string &path, std::error_code &error);
/// open(2) relative to `folder`, a descriptor or AT_FDCWD; retried after EINTR. Never blocks on a FIFO and
/// never acquires a controlling terminal.
[[nodiscard]] FileHandle openFile(
    const std::string &path, int flags, mode_t mode = 0, int folder = -100 /* AT_FDCWD */);
/// Succeeds when every byte was written.
[[nodiscard]] std::error_code writeAll(int descriptor, std::string_view bytes, off_t at);
/// The rest of the file; nothing on a read error or for 2 GiB and more.
[[nodiscard]] std::optional<std::string> readAll(int descriptor);
/// fsync(2); succeeds on file systems that do not support it.
[[nodiscard]] std::error_code synchronise(int descriptor);
/// Ok for an empty error.
[[nodiscard]] WriteOutcome outcomeOf(std::error_code error);
/// `path` with links in its last part resolved, even if the target does not exist; empty for a cycle of
/// links.
[[nodiscard]] std::string linkTarget(const std::string &path);
/// The folder part of `path` for open(2): "." when there is none.
[[nodiscard]] std::string folderOf(const std::string &path);
[[nodiscard]] std::string nameOf(const std::string &path);
/// The names in a folder, without "." and ".."; none when the folder cannot be read.
[[nodiscard]] std::vector<std::string> namesIn(const std::string &folder);
/// The content of a regular file; nothing for anything else, including a link to one.
[[nodiscard]] std::optional<std::string> regularContent(const std::string &path);
/// Whether something other than a regular file has this name.
[[nodiscard]] bool isIrregularFile(const std::string &path);

} // namespace kevra
