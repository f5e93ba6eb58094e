// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/record_folder_posix.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <filesystem>
#include <set>
#include <sys/file.h>

namespace kevra {
namespace {

constexpr int maxPrograms = 1000;
constexpr std::string_view asidePrefix = "kept-";
constexpr std::array<std::string_view, 5> numberedKinds{".lock", ".record", ".crash", ".autosave", ".txt"};

} // namespace

RecordFolder::RecordFolder(std::string path, Place place)
    : m_path(std::move(path))
    , m_place(place)
{
}

bool RecordFolder::exists() const
{
    struct stat status { };
    const auto read = m_place == Place::Shared ? ::lstat : ::stat;
    return read(m_path.c_str(), &status) == 0 && S_ISDIR(status.st_mode)
        && (m_place == Place::Private || status.st_uid == ::geteuid());
}

WriteOutcome RecordFolder::open()
{
    if (m_number > 0)
        return WriteOutcome::Ok;
    std::error_code error;
    if (m_place == Place::Private)
        std::filesystem::create_directories(std::filesystem::path(m_path).parent_path(), error);
    const auto unmade = errorOf(::mkdir(m_path.c_str(), 0700));
    if (unmade && !exists())
        return unmade == std::errc::file_exists ? WriteOutcome::Denied : outcomeOf(unmade);
    // Only the user may read what they wrote.
    ::chmod(m_path.c_str(), 0700);
    for (int number = 1; number <= maxPrograms; ++number) {
        auto handle = openLock(number);
        if (!handle && !isIrregularFile(file(number, ".lock")))
            return outcomeOf(handle.error());
        if (takeLock(handle)) {
            m_lock = std::move(handle);
            m_number = number;
            return WriteOutcome::Ok;
        }
    }
    return WriteOutcome::Failed;
}

std::string RecordFolder::file(int number, const char *kind) const
{
    return m_path + '/' + std::to_string(number) + kind;
}

FileHandle RecordFolder::openLock(int number) const
{
    return openFile(file(number, ".lock"), O_RDWR | O_CREAT | O_NOFOLLOW, 0600);
}

FileHandle RecordFolder::lock(int number) const
{
    auto handle = openLock(number);
    return takeLock(handle) ? std::move(handle) : FileHandle();
}

std::vector<int> RecordFolder::numbers() const
{
    std::set<int> numbers;
    for (auto &name : namesIn(m_path))
        numbers.insert(numberIn(std::move(name)));
    numbers.erase(0);
    return {numbers.begin(), numbers.end()};
}

bool RecordFolder::setAside(
    const std::string &file, std::uint64_t sequence, int number, const char *kind) const
{
    const auto text = std::to_string(sequence);
    const auto name = m_path + '/' + std::string(asidePrefix) + std::string(20 - text.size(), '0') + text
        + '-' + std::to_string(number);
    for (int i = 0; i < maxPrograms; ++i) {
        const auto to = name + (i > 0 ? '-' + std::to_string(i) : "") + kind;
        struct stat status { };
        if (::lstat(to.c_str(), &status) == 0)
            continue;
        return ::rename(file.c_str(), to.c_str()) == 0;
    }
    return false;
}

void RecordFolder::close()
{
    if (m_number == 0)
        return;
    ::unlink(ownFile(".lock").c_str());
    m_number = 0;
    m_lock = {};
    // Removes a shared folder unless something is kept in it.
    if (m_place == Place::Shared)
        ::rmdir(m_path.c_str());
}

bool takeLock(const FileHandle &file)
{
    struct stat status { };
    // A file unlinked between opening and locking is not a valid lock.
    return file && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0 && ::fstat(file.get(), &status) == 0
        && status.st_nlink > 0 && S_ISREG(status.st_mode);
}

int numberIn(std::string name)
{
    if (name == "autosave.txt")
        return 1;
    if (name.starts_with("autosave-") && name.ends_with(".txt"))
        name.erase(0, 9);
    int number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    const std::string_view rest(end, static_cast<std::size_t>(name.data() + name.size() - end));
    const bool known = std::ranges::find(numberedKinds, rest) != numberedKinds.end();
    return error == std::errc() && known && number > 0 && number <= maxPrograms ? number : 0;
}

std::optional<std::uint64_t> asideSequence(const std::string &name)
{
    if (!name.starts_with(asidePrefix))
        return std::nullopt;
    std::uint64_t sequence = 0;
    std::from_chars(name.data() + asidePrefix.size(), name.data() + name.size(), sequence);
    return sequence;
}

} // namespace kevra
