// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/file_store_posix.h"

#include "storage/atomic_write_posix.h"
#include "storage/file_handle_posix.h"
#include "storage/in_place_write_posix.h"
#include "storage/native_path.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <new>

namespace kevra {
namespace {

/// Nothing when there is no such file, or when it cannot be found out.
std::optional<struct stat> statusOf(const std::string &path)
{
    std::error_code error;
    return kevra::statusOf(path, error);
}

bool isWritable(const std::string &path)
{
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

/// Replacing the file would break its other hard links or change its owner.
bool mustStaySameFile(const struct stat &status)
{
    return status.st_nlink > 1 || status.st_uid != ::geteuid();
}

} // namespace

FileStorePosix::FileStorePosix(std::string stateFolder, std::string documents)
    : m_stateFolder(std::move(stateFolder))
    , m_documents(std::move(documents))
{
}

std::string FileStorePosix::native(const std::string &path) const
{
    return nativePath(path, m_documents);
}

bool FileStorePosix::fileExists(const std::string &path) const
{
    const auto status = statusOf(native(path));
    return status && S_ISREG(status->st_mode);
}

bool FileStorePosix::folderExists(const std::string &path) const
{
    const auto status = statusOf(native(path));
    return status && S_ISDIR(status->st_mode);
}

std::optional<FileStamp> FileStorePosix::stamp(const std::string &path) const
{
    const auto status = statusOf(native(path));
    if (!status || !S_ISREG(status->st_mode))
        return std::nullopt;
    return FileStamp{std::int64_t{status->st_mtim.tv_sec} * 1'000'000'000 + status->st_mtim.tv_nsec,
        status->st_size, status->st_ino,
        std::int64_t{status->st_ctim.tv_sec} * 1'000'000'000 + status->st_ctim.tv_nsec};
}

std::optional<std::string> FileStorePosix::read(const std::string &path) const
{
    const auto file = openFile(native(path), O_RDONLY);
    struct stat status { };
    if (!file || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    try {
        return readAll(file.get());
    } catch (const std::bad_alloc &) {
        return std::nullopt;
    }
}

WriteOutcome FileStorePosix::write(const std::string &path, std::string_view bytes)
{
    return put(path, bytes, {});
}

WriteOutcome FileStorePosix::writeDocument(
    const std::string &path, std::string_view bytes, ReadOnlyFiles readOnly, const Replaced &replaced)
{
    return readOnly == ReadOnlyFiles::Replace ? putOverReadOnly(path, bytes, replaced)
                                              : put(path, bytes, replaced);
}

WriteOutcome FileStorePosix::putInPlace(
    const std::string &target, std::string_view bytes, const Replaced &replaced)
{
    InPlaceContext context{replaced, {}};
    const auto saved = writeInPlace(target, bytes, m_stateFolder, context);
    m_safetyCopy = context.copy;
    return saved;
}

WriteOutcome FileStorePosix::put(const std::string &path, std::string_view bytes, const Replaced &replaced)
{
    const auto target = linkTarget(native(path));
    if (target.empty() || target.ends_with('/'))
        return WriteOutcome::Failed;
    std::error_code error;
    const auto status = statusOf(target, error);
    if (error && error != std::errc::no_such_file_or_directory)
        return outcomeOf(error);
    if (status && !S_ISREG(status->st_mode))
        return WriteOutcome::NotAFile;
    if (status && !isWritable(target))
        return WriteOutcome::Denied;
    if (status && mustStaySameFile(*status))
        return putInPlace(target, bytes, replaced);

    // Once per folder: scanning a folder of thousands of files at each write would take longer than writing.
    if (m_cleanedFolders.insert(folderOf(target)).second)
        removeLeftovers(target);
    const auto saved = writeAtomically(target, bytes, nullptr, replaced);
    return saved == WriteOutcome::Denied && status ? putInPlace(target, bytes, replaced) : saved;
}

WriteOutcome FileStorePosix::putOverReadOnly(
    const std::string &path, std::string_view bytes, const Replaced &replaced)
{
    const auto target = linkTarget(native(path));
    const auto status = statusOf(target);
    if (!status || !S_ISREG(status->st_mode) || isWritable(target))
        return put(path, bytes, replaced);
    if (::chmod(target.c_str(), (status->st_mode & 07777) | S_IWUSR) != 0)
        return outcomeOf(lastError());
    const auto saved = put(path, bytes, replaced);
    if (saved != WriteOutcome::Ok)
        ::chmod(target.c_str(), status->st_mode & 07777);
    return saved;
}

WriteOutcome FileStorePosix::writeBackup(
    const std::string &original, const std::string &path, std::string_view bytes)
{
    std::error_code error;
    const auto status = statusOf(native(original), error);
    if (!status)
        return outcomeOf(error);
    return writeAtomically(native(path), bytes, &*status);
}

WriteOutcome FileStorePosix::writePrivate(const std::string &path, std::string_view bytes)
{
    return writePrivately(native(path), bytes);
}

bool FileStorePosix::remove(const std::string &path)
{
    const auto file = native(path);
    struct stat status { };
    if (::lstat(file.c_str(), &status) != 0)
        return errno == ENOENT;
    if (!S_ISREG(status.st_mode) && !S_ISLNK(status.st_mode))
        return false;
    return ::unlink(file.c_str()) == 0 || errno == ENOENT;
}

bool FileStorePosix::rename(const std::string &from, const std::string &to)
{
    const auto source = native(from);
    const auto target = native(to);
    if (::renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    // Some network file systems do not support the flag.
    struct stat status { };
    if (errno != EINVAL || ::lstat(target.c_str(), &status) == 0)
        return false;
    return ::rename(source.c_str(), target.c_str()) == 0;
}

} // namespace kevra
