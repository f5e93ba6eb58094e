// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/backup_store_qt.h"

#include "storage/atomic_write_qt.h"
#include "storage/backup_bounds.h"
#include "text/paths.h"

#include <array>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <functional>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace kevra {
namespace {

using Clock = std::chrono::system_clock;

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

/// Behind the time: a number for the folder, then the file's name, shortened to what a name may have.
std::string mark(const std::string &path)
{
    const auto number = std::hash<std::string_view>{}(path) % 1'000'000;
    return std::to_string(number) + '-' + std::string(fileName(path).substr(0, 120));
}

} // namespace

BackupStoreQt::BackupStoreQt(std::string folder)
    : m_folder(std::move(folder))
{
}

bool BackupStoreQt::keep(const std::string &path, std::string_view bytes)
{
    std::error_code error;
    fs::create_directories(m_folder, error);
    fs::permissions(m_folder, fs::perms::owner_all, error);
    const auto name = timeText() + '-' + mark(path);
    const bool kept = writePrivately(m_folder + '/' + name, bytes) == Saved::Ok;
    prune(name);
    return kept;
}

void BackupStoreQt::prune(const std::string &newest) const
{
    constexpr std::size_t timeLength = 23;
    std::vector<KeptVersion> versions;
    std::error_code error;
    for (const auto &entry : fs::directory_iterator(m_folder, error)) {
        struct stat status { };
        auto name = entry.path().filename().string();
        if (::lstat(entry.path().c_str(), &status) != 0 || !S_ISREG(status.st_mode)
            || name.size() < timeLength)
            continue;
        auto of = name.substr(timeLength);
        versions.push_back({std::move(name), std::move(of), status.st_mtim.tv_sec, status.st_size});
    }
    for (const auto &name : beyondBounds(std::move(versions), Clock::to_time_t(Clock::now()), newest))
        fs::remove(m_folder + '/' + name, error);
}

} // namespace kevra
