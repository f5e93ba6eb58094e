// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/file_handle_posix.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <dirent.h>
#include <fcntl.h>
#include <memory>

namespace kevra {
namespace {

/// The editor control has signed 32-bit positions.
constexpr std::size_t maxFileSize = std::size_t{1} << 31;

template <typename Call> auto retried(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

} // namespace

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

std::error_code errorOf(int result)
{
    return result < 0 ? lastError() : std::error_code();
}

std::optional<struct stat> statusOf(const std::string &path, std::error_code &error)
{
    struct stat status { };
    error = errorOf(::stat(path.c_str(), &status));
    return error ? std::nullopt : std::optional(status);
}

FileHandle openFile(const std::string &path, int flags, mode_t mode, int folder)
{
    const int descriptor = retried(
        [&] { return ::openat(folder, path.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode); });
    return descriptor < 0 ? FileHandle(lastError()) : FileHandle(descriptor);
}

std::error_code writeAll(int descriptor, std::string_view bytes, off_t at)
{
    while (!bytes.empty()) {
        const auto written = retried([&] { return ::pwrite(descriptor, bytes.data(), bytes.size(), at); });
        if (written < 0)
            return lastError();
        if (written == 0)
            return std::make_error_code(std::errc::io_error);
        bytes.remove_prefix(static_cast<std::size_t>(written));
        at += written;
    }
    return {};
}

std::optional<std::string> readAll(int descriptor)
{
    struct stat status { };
    if (::fstat(descriptor, &status) != 0 || static_cast<std::size_t>(status.st_size) >= maxFileSize)
        return std::nullopt;
    // One byte more than the size, so that the read that finds the end does not grow the buffer.
    std::string bytes(static_cast<std::size_t>(status.st_size) + 1, '\0');
    std::size_t filled = 0;
    for (;;) {
        const auto got
            = retried([&] { return ::read(descriptor, bytes.data() + filled, bytes.size() - filled); });
        if (got < 0)
            return std::nullopt;
        if (got == 0)
            break;
        filled += static_cast<std::size_t>(got);
        if (filled >= maxFileSize)
            return std::nullopt;
        if (filled == bytes.size())
            bytes.resize(filled * 2);
    }
    bytes.resize(filled);
    return bytes;
}

std::error_code synchronise(int descriptor)
{
    const auto error = errorOf(retried([&] { return ::fsync(descriptor); }));
    constexpr std::array unsupported{EINVAL, ENOSYS, EOPNOTSUPP, EROFS};
    return std::ranges::find(unsupported, error.value()) == unsupported.end() ? error : std::error_code();
}

WriteOutcome outcomeOf(std::error_code error)
{
    switch (error.value()) {
    case 0:
        return WriteOutcome::Ok;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return WriteOutcome::DiskFull;
    case EACCES:
    case EPERM:
    case EROFS:
        return WriteOutcome::Denied;
    default:
        return WriteOutcome::Failed;
    }
}

std::string linkTarget(const std::string &path)
{
    constexpr int maxLinks = 40;
    std::string target = path;
    for (int i = 0; i < maxLinks; ++i) {
        std::array<char, PATH_MAX> link{};
        const auto length = ::readlink(target.c_str(), link.data(), link.size());
        if (length < 0)
            return target;
        const std::string next(link.data(), static_cast<std::size_t>(length));
        target = next.starts_with('/') ? next : folderOf(target) + '/' + next;
    }
    return {};
}

std::string folderOf(const std::string &path)
{
    const auto at = path.rfind('/');
    return at == std::string::npos ? "." : path.substr(0, at + 1);
}

std::string nameOf(const std::string &path)
{
    return path.substr(path.rfind('/') + 1);
}

std::vector<std::string> namesIn(const std::string &folder)
{
    const std::unique_ptr<DIR, int (*)(DIR *)> listing(::opendir(folder.c_str()), ::closedir);
    std::vector<std::string> names;
    while (const auto *entry = listing ? ::readdir(listing.get()) : nullptr)
        if (const std::string_view name = entry->d_name; name != "." && name != "..")
            names.emplace_back(name);
    return names;
}

std::optional<std::string> regularContent(const std::string &path)
{
    const auto file = openFile(path, O_RDONLY | O_NOFOLLOW);
    struct stat status { };
    if (!file || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return readAll(file.get());
}

bool isIrregularFile(const std::string &path)
{
    struct stat status { };
    return ::lstat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

} // namespace kevra
