// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/backup_store_posix.h"

#include "storage/atomic_write_posix.h"
#include "storage/backup_bounds.h"
#include "storage/checksummed_record.h"
#include "storage/file_handle_posix.h"
#include "text/paths.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <functional>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace kevra {
namespace {

using Clock = std::chrono::system_clock;

constexpr std::size_t timeLength = 23; ///< of the time and the dash after it
constexpr int lastReason = static_cast<int>(KeptReason::Deleted);

std::string timeText()
{
    const auto now = Clock::now();
    const auto seconds = Clock::to_time_t(now);
    std::tm utc{};
    ::gmtime_r(&seconds, &utc);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y%m%d-%H%M%S", &utc);
    const auto micro
        = std::chrono::duration_cast<std::chrono::microseconds>(now.time_since_epoch()).count() % 1'000'000;
    return std::string(text.data()) + '.' + std::to_string(1'000'000 + micro).substr(1);
}

/// The part after the time: a hash of the path, then the file's name, shortened to fit into a name.
std::string nameSuffix(const std::string &path)
{
    const auto number = std::hash<std::string_view>{}(path) % 1'000'000;
    return std::to_string(number) + '-' + std::string(fileName(path).substr(0, 120));
}

} // namespace

BackupStorePosix::BackupStorePosix(std::string folder)
    : m_folder(std::move(folder))
{
}

bool BackupStorePosix::keep(const std::string &path, std::string_view bytes, KeptReason reason)
{
    std::error_code error;
    fs::create_directories(m_folder, error);
    fs::permissions(m_folder, fs::perms::owner_all, error);
    const auto name = timeText() + '-' + nameSuffix(path);
    const bool kept = writePrivately(m_folder + '/' + name, bytes) == WriteOutcome::Ok;
    if (kept)
        // Without the note the version is shown under its file name.
        std::ignore
            = writePrivately(notePath(name), withChecksum({path, std::to_string(static_cast<int>(reason))}));
    prune(name);
    return kept;
}

std::string BackupStorePosix::notePath(const std::string &name) const
{
    return m_folder + "/." + name + ".about";
}

std::vector<Version> BackupStorePosix::copies() const
{
    std::vector<Version> copies;
    for (const auto &name : namesIn(m_folder)) {
        struct stat status { };
        if (name.starts_with('.') || name.size() < timeLength
            || ::lstat((m_folder + '/' + name).c_str(), &status) != 0 || !S_ISREG(status.st_mode))
            continue;
        copies.push_back({name, {}, KeptReason::Replaced, status.st_mtim.tv_sec, status.st_size});
    }
    return copies;
}

std::vector<Version> BackupStorePosix::versions() const
{
    auto versions = copies();
    for (auto &version : versions) {
        const auto note = regularContent(notePath(version.name));
        const auto fields = note ? readChecksummed(*note) : std::nullopt;
        if (fields && fields->size() == 2 && !(*fields)[1].empty()) {
            version.path = (*fields)[0];
            version.reason = static_cast<KeptReason>(std::clamp((*fields)[1].front() - '0', 0, lastReason));
        } else {
            // Without its note only the file's name is known, which follows the hash of the path.
            const auto dash = version.name.find('-', timeLength);
            version.path = version.name.substr(std::min(version.name.size(), dash + 1));
        }
    }
    std::ranges::sort(versions, std::greater{}, &Version::name);
    return versions;
}

std::optional<std::string> BackupStorePosix::content(const std::string &name) const
{
    return regularContent(m_folder + '/' + name);
}

bool BackupStorePosix::remove(const std::string &name)
{
    ::unlink(notePath(name).c_str());
    return ::unlink((m_folder + '/' + name).c_str()) == 0 || errno == ENOENT;
}

void BackupStorePosix::prune(const std::string &newest)
{
    std::vector<KeptVersion> kept;
    for (const auto &version : copies())
        kept.push_back({version.name, version.name.substr(timeLength), version.time, version.size});
    for (const auto &name : versionsToRemove(std::move(kept), Clock::to_time_t(Clock::now()), newest))
        std::ignore = remove(name); // tried again after the next one
}

} // namespace kevra
