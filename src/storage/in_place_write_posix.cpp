// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/in_place_write_posix.h"

#include "storage/atomic_write_posix.h"
#include "storage/checksummed_record.h"
#include "storage/file_handle_posix.h"

#include <algorithm>
#include <atomic>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <vector>

namespace kevra {
namespace {

constexpr std::string_view copyPrefix = "in-place-";

struct Change {
    std::string_view before;
    std::string_view after;
};

std::error_code cutAndSynchronise(int file, std::size_t size)
{
    const auto error = errorOf(::ftruncate(file, static_cast<off_t>(size)));
    return error ? error : synchronise(file);
}

/// Appends first: if the disk is full, the old bytes are still untouched.
std::error_code overwrite(int file, const Change &change)
{
    const auto common = std::min(change.before.size(), change.after.size());
    if (const auto error = writeAll(file, change.after.substr(common), static_cast<off_t>(common)))
        return error;
    if (const auto error = writeAll(file, change.after.substr(0, common), 0))
        return error;
    return cutAndSynchronise(file, change.after.size());
}

/// Fails only on a disk error, since the space exists; then the safety copy remains.
std::error_code putBack(int file, const Change &change)
{
    const auto error = writeAll(file, change.before, 0);
    return error ? error : cutAndSynchronise(file, change.before.size());
}

/// Whether these bytes can be an interrupted write of this change.
bool isTorn(std::string_view bytes, const Change &change)
{
    const auto &[before, after] = change;
    if (bytes.size() < std::min(before.size(), after.size())
        || bytes.size() > std::max(before.size(), after.size()))
        return false;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        if ((i >= before.size() || bytes[i] != before[i]) && (i >= after.size() || bytes[i] != after[i]))
            return false;
    return true;
}

FileHandle openRegular(const std::string &path, int flags)
{
    auto file = openFile(path, flags);
    struct stat status { };
    if (file && (::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)))
        return FileHandle(std::make_error_code(std::errc::invalid_argument));
    return file;
}

void complete(const std::string &copy)
{
    const auto handle = openRegular(copy, O_RDWR);
    if (!handle || ::flock(handle.get(), LOCK_EX | LOCK_NB) != 0)
        return;
    const auto bytes = readAll(handle.get());
    const auto fields = bytes ? readChecksummed(*bytes) : std::nullopt;
    // If the copy is incomplete, the write never began.
    if (fields && fields->size() == 3) {
        const Change change{(*fields)[1], (*fields)[2]};
        const auto file = openRegular((*fields)[0], O_RDWR);
        const auto now = file ? readAll(file.get()) : std::nullopt;
        if (now && *now != change.before && *now != change.after && isTorn(*now, change)
            && overwrite(file.get(), change))
            return;
    }
    ::unlink(copy.c_str());
}

std::string copyPath(const std::string &stateFolder)
{
    static std::atomic<unsigned> number{0};
    return stateFolder + '/' + std::string(copyPrefix) + std::to_string(::getpid()) + '-'
        + std::to_string(++number);
}

} // namespace

WriteOutcome writeInPlace(const std::string &target, std::string_view bytes, const std::string &stateFolder,
    InPlaceContext &context)
{
    const auto file = openRegular(target, O_RDWR);
    if (!file)
        return outcomeOf(file.error());
    const auto before = readAll(file.get());
    if (!before)
        return WriteOutcome::Failed;
    const Change change{*before, bytes};
    if (context.replaced)
        context.replaced(*before);

    std::error_code error;
    std::filesystem::create_directories(stateFolder, error);
    const auto copy = copyPath(stateFolder);
    if (const auto kept = writePrivately(copy, withChecksum({target, *before, bytes}));
        kept != WriteOutcome::Ok)
        return kept;
    // Another instance that is starting may have taken the copy for a leftover.
    const auto lock = openRegular(copy, O_RDONLY);
    struct stat status { };
    if (!lock || ::flock(lock.get(), LOCK_EX | LOCK_NB) != 0 || ::fstat(lock.get(), &status) != 0
        || status.st_nlink == 0)
        return WriteOutcome::Failed;
    const auto failed = overwrite(file.get(), change);
    if (failed && putBack(file.get(), change)) {
        context.copy = copy;
        return WriteOutcome::Torn;
    }
    ::unlink(copy.c_str());
    return outcomeOf(failed);
}

void completeTornWrites(const std::string &stateFolder)
{
    for (const auto &name : namesIn(stateFolder))
        if (name.starts_with(copyPrefix))
            complete(stateFolder + '/' + name);
}

} // namespace kevra
