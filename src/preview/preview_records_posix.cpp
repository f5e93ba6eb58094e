// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/preview_records_posix.h"

#include "storage/atomic_write_posix.h"

#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <thread>
#include <tuple>

namespace fs = std::filesystem;

namespace kevra {
namespace {

constexpr auto extension = ".page";

bool tryLock(const FileHandle &file)
{
    return file && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0;
}

/// A program that has been stopped in the middle must not stop this one.
void lockSoon(const FileHandle &file)
{
    using namespace std::chrono_literals;
    for (int attempt = 0; file && !tryLock(file) && attempt < 200; ++attempt)
        std::this_thread::sleep_for(10ms);
}

} // namespace

PreviewRecordsPosix::PreviewRecordsPosix(std::string folder)
    : m_folder(std::move(folder))
{
}

void PreviewRecordsPosix::exclusively(const std::function<void()> &step)
{
    std::error_code error;
    if (fs::create_directories(m_folder, error))
        fs::permissions(m_folder, fs::perms::owner_all, error);
    const auto lock = openFile(path("lock"), O_RDWR | O_CREAT, 0600);
    lockSoon(lock);
    step();
}

std::vector<PreviewRecords::Entry> PreviewRecordsPosix::all() const
{
    std::vector<Entry> entries;
    std::error_code error;
    for (const auto &item : fs::directory_iterator(m_folder, error)) {
        const auto name = item.path().filename().string();
        const auto file = openFile(item.path().string(), O_RDONLY | O_NOFOLLOW);
        if (!file || !name.ends_with(extension))
            continue;
        const auto bytes = readAll(file.get());
        entries.push_back({name, readPreviewRecord(bytes.value_or("")).value_or(PreviewRecord()),
            name == own() || !tryLock(file)});
    }
    return entries;
}

std::string PreviewRecordsPosix::own() const
{
    // Another program may have dropped it, and a third one taken the name.
    struct stat status { };
    return m_lock && ::fstat(m_lock.get(), &status) == 0 && status.st_nlink > 0 ? m_own : std::string();
}

void PreviewRecordsPosix::write(const PreviewRecord &record)
{
    if (own().empty()) {
        int number = 1;
        do
            m_own = std::to_string(number++) + extension;
        while (fs::exists(fs::path(path(m_own))));
    }
    std::ignore = writePrivately(path(m_own), previewRecordBytes(record));
    m_lock = openFile(path(m_own), O_RDONLY);
    lockSoon(m_lock);
}

void PreviewRecordsPosix::drop(const std::string &name)
{
    if (name.empty())
        return;
    const bool isOwn = name == own();
    ::unlink(path(name).c_str());
    if (isOwn)
        m_lock = {};
}

} // namespace kevra
