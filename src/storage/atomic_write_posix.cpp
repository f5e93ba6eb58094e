// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/atomic_write_posix.h"

#include "storage/file_handle_posix.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <sys/xattr.h>

namespace kevra {
namespace {

/// Prefix of temporary files. With the process number after it, files left by a dead process of this machine
/// can be recognised.
std::string temporaryPrefix()
{
    std::array<char, 256> host{};
    ::gethostname(host.data(), host.size() - 1);
    return ".kevra-save-" + std::to_string(std::hash<std::string>{}(host.data()) % 1000000) + '-';
}

std::string temporaryName()
{
    static std::atomic<unsigned> number{0};
    return temporaryPrefix() + std::to_string(::getpid()) + '-' + std::to_string(++number);
}

/// A new file that is invisible until it is complete, and is deleted unless moveTo() succeeds.
class NewFile {
public:
    explicit NewFile(int folder)
        : m_folder(folder)
        , m_handle(openFile(".", O_TMPFILE | O_WRONLY, 0600, folder))
    {
        // Not every file system supports O_TMPFILE.
        constexpr std::array unsupported{EOPNOTSUPP, EISDIR, EINVAL, ENOENT};
        if (std::ranges::find(unsupported, m_handle.error().value()) == unsupported.end())
            return;
        m_handle = openFile(m_name, O_CREAT | O_EXCL | O_WRONLY, 0600, folder);
        m_named = static_cast<bool>(m_handle);
    }
    ~NewFile()
    {
        if (m_named)
            ::unlinkat(m_folder, m_name.c_str(), 0);
    }
    NewFile(const NewFile &) = delete;
    NewFile &operator=(const NewFile &) = delete;

    [[nodiscard]] int descriptor() const { return m_handle.get(); }
    [[nodiscard]] std::error_code error() const { return m_handle.error(); } ///< why it is not there

    [[nodiscard]] std::error_code moveTo(const std::string &name, const FileStore::Replaced &replaced)
    {
        if (!m_named) {
            if (const auto error = link(name); error != std::errc::file_exists)
                return error;
            if (const auto error = link(m_name))
                return error;
        }
        m_named = true;
        // Exchanges the two files, so that the old one is read when no other program can save to it by name.
        if (replaced && ::renameat2(m_folder, m_name.c_str(), m_folder, name.c_str(), RENAME_EXCHANGE) == 0) {
            passContent(m_name, replaced);
            return {};
        }
        if (replaced)
            passContent(name, replaced);
        const auto error = errorOf(::renameat(m_folder, m_name.c_str(), m_folder, name.c_str()));
        m_named = static_cast<bool>(error);
        return error;
    }

private:
    void passContent(const std::string &name, const FileStore::Replaced &replaced) const
    {
        const auto file = openFile(name, O_RDONLY | O_NOFOLLOW, 0, m_folder);
        struct stat status { };
        if (!file || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
            return;
        if (const auto bytes = readAll(file.get()))
            replaced(*bytes);
    }
    [[nodiscard]] std::error_code link(const std::string &name) const
    {
        const auto self = "/proc/self/fd/" + std::to_string(m_handle.get());
        return errorOf(::linkat(AT_FDCWD, self.c_str(), m_folder, name.c_str(), AT_SYMLINK_FOLLOW));
    }

    int m_folder;
    std::string m_name = temporaryName();
    FileHandle m_handle;
    bool m_named = false;
};

mode_t modeOfNewFiles()
{
    // The umask can only be read by setting it. Read once, because other threads may be creating files.
    static const mode_t mask = [] {
        const auto now = ::umask(022);
        ::umask(now);
        return now;
    }();
    return 0666 & ~mask;
}

/// If the new file's group differs from the original's, the group gets no access.
mode_t modeOfCopy(const struct stat *original, int newFile)
{
    struct stat fresh { };
    if (!original)
        return modeOfNewFiles();
    const bool sameGroup = ::fstat(newFile, &fresh) == 0 && fresh.st_gid == original->st_gid;
    return original->st_mode & (sameGroup ? 0777 : 0700);
}

bool copyAttributes(int from, int to)
{
    const auto size = ::flistxattr(from, nullptr, 0);
    if (size <= 0)
        return size == 0 || errno == EOPNOTSUPP;
    std::string names(static_cast<std::size_t>(size), '\0');
    names.resize(
        static_cast<std::size_t>(std::max<ssize_t>(0, ::flistxattr(from, names.data(), names.size()))));
    for (std::size_t at = 0; at < names.size(); at = names.find('\0', at) + 1) {
        const char *name = names.data() + at;
        const auto length = ::fgetxattr(from, name, nullptr, 0);
        std::string value(static_cast<std::size_t>(std::max<ssize_t>(0, length)), '\0');
        const bool read = length >= 0 && ::fgetxattr(from, name, value.data(), value.size()) == length;
        const bool copied = read && ::fsetxattr(to, name, value.data(), value.size(), 0) == 0;
        // Security labels are assigned by the system itself.
        if (!copied && !std::string_view(name).starts_with("security."))
            return false;
    }
    return true;
}

/// Copies group, mode and extended attributes to the new file.
bool copyMetadata(const struct stat &old, int oldFile, int newFile)
{
    struct stat fresh { };
    if (::fstat(newFile, &fresh) != 0)
        return false;
    if (fresh.st_gid != old.st_gid && ::fchown(newFile, static_cast<uid_t>(-1), old.st_gid) != 0)
        return false;
    return ::fchmod(newFile, old.st_mode & 07777) == 0 && (oldFile < 0 || copyAttributes(oldFile, newFile));
}

bool isWhole(int descriptor, std::size_t size)
{
    struct stat status { };
    return ::fstat(descriptor, &status) == 0 && static_cast<std::size_t>(status.st_size) == size;
}

} // namespace

namespace {

enum class Readers { SameAsTarget, OwnerOnly };

WriteOutcome writeWithReaders(Readers readers, const std::string &target, std::string_view bytes,
    const struct stat *original, const FileStore::Replaced &replaced)
{
    const auto folder = openFile(folderOf(target), O_RDONLY | O_DIRECTORY);
    if (!folder)
        return outcomeOf(folder.error());
    NewFile file(folder.get());
    if (file.error())
        return outcomeOf(file.error());
    if (const auto error = writeAll(file.descriptor(), bytes, 0))
        return outcomeOf(error);

    std::error_code error;
    if (readers == Readers::OwnerOnly) {
        // Keep the mode 0600 it was created with.
    } else if (const auto old = statusOf(target, error)) {
        const auto oldFile = openFile(target, O_RDONLY);
        if (!copyMetadata(*old, oldFile.get(), file.descriptor()))
            return WriteOutcome::Denied;
    } else if (error != std::errc::no_such_file_or_directory) {
        return outcomeOf(error);
    } else if (::fchmod(file.descriptor(), modeOfCopy(original, file.descriptor())) != 0) {
        return outcomeOf(lastError());
    }

    if (const auto unsynchronised = synchronise(file.descriptor()))
        return outcomeOf(unsynchronised);
    if (!isWhole(file.descriptor(), bytes.size()))
        return WriteOutcome::Failed;
    if (const auto unmoved = file.moveTo(nameOf(target), replaced))
        return outcomeOf(unmoved);
    return outcomeOf(synchronise(folder.get()));
}

} // namespace

WriteOutcome writeAtomically(const std::string &target, std::string_view bytes, const struct stat *original,
    const FileStore::Replaced &replaced)
{
    return writeWithReaders(Readers::SameAsTarget, target, bytes, original, replaced);
}

WriteOutcome writePrivately(const std::string &target, std::string_view bytes)
{
    return writeWithReaders(Readers::OwnerOnly, target, bytes, nullptr, {});
}

void removeLeftovers(const std::string &path)
{
    const auto folder = folderOf(path);
    const std::unique_ptr<DIR, int (*)(DIR *)> listing(::opendir(folder.c_str()), ::closedir);
    const auto prefix = temporaryPrefix();
    while (const auto *entry = listing ? ::readdir(listing.get()) : nullptr) {
        const std::string_view name = entry->d_name;
        if (!name.starts_with(prefix))
            continue;
        pid_t process = 0;
        std::from_chars(name.data() + prefix.size(), name.data() + name.size(), process);
        if (process > 0 && ::kill(process, 0) != 0 && errno == ESRCH)
            ::unlinkat(::dirfd(listing.get()), entry->d_name, 0);
    }
}

} // namespace kevra
