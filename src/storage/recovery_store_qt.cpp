// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/recovery_store_qt.h"

#include "storage/atomic_write_qt.h"
#include "storage/in_place_write_qt.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <set>
#include <sys/file.h>

namespace fs = std::filesystem;

namespace kevra {
namespace {

constexpr int mostPrograms = 1000;
constexpr auto keptPrefix = "kept-";

std::optional<std::string> contentOf(const std::string &path)
{
    const auto file = openFile(path, O_RDONLY | O_NOFOLLOW);
    struct stat status { };
    if (!file || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return readAll(file.get());
}

/// Ends with the handle, and with the program however it ends.
bool takeLock(const FileHandle &file)
{
    struct stat status { };
    // A file that has lost its name between opening and locking belongs to nobody.
    return file && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0 && ::fstat(file.get(), &status) == 0
        && status.st_nlink > 0;
}

std::int64_t changeTime(const std::string &path)
{
    struct stat status { };
    return ::stat(path.c_str(), &status) == 0
        ? std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec
        : 0;
}

/// The number in "7.lock", "7.record", "7.crash" or "autosave-7.txt"; "autosave.txt" is the first program's.
int numberIn(std::string name)
{
    if (name == "autosave.txt")
        return 1;
    if (name.starts_with("autosave-") && name.ends_with(".txt"))
        name.erase(0, 9);
    int number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    const std::string_view rest(end, static_cast<std::size_t>(name.data() + name.size() - end));
    const bool known = rest == ".lock" || rest == ".record" || rest == ".crash" || rest == ".txt";
    return error == std::errc() && known && number <= mostPrograms ? number : 0;
}

} // namespace

RecoveryStoreQt::RecoveryStoreQt(std::string folder, BackupStore &backups)
    : m_folder(std::move(folder))
    , m_records(m_folder + "/recovery")
    , m_backups(backups)
{
    std::error_code error;
    // What users write is nobody else's to read.
    if (fs::create_directories(m_records, error))
        fs::permissions(m_records, fs::perms::owner_all, error);
    completeTornWrites(m_records);
    takeNumber();
    for (const auto number : knownNumbers())
        putLeftoversAside(number);
}

RecoveryStoreQt::~RecoveryStoreQt()
{
    m_writer.finish();
    if (m_number > 0)
        ::unlink(ownFile(m_number, ".lock").c_str());
}

std::string RecoveryStoreQt::ownFile(int number, const char *kind) const
{
    return m_records + '/' + std::to_string(number) + kind;
}

std::string RecoveryStoreQt::autosaveFile(int number) const
{
    return m_folder + (number == 1 ? "/autosave" : "/autosave-" + std::to_string(number)) + ".txt";
}

std::string RecoveryStoreQt::keptFile(const char *kind) const
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto time = std::chrono::duration_cast<std::chrono::microseconds>(now).count();
    return m_records + '/' + keptPrefix + std::to_string(time) + '-' + std::to_string(m_number) + kind;
}

FileHandle RecoveryStoreQt::lock(int number) const
{
    auto file = openFile(ownFile(number, ".lock"), O_RDWR | O_CREAT, 0600);
    return takeLock(file) ? std::move(file) : FileHandle();
}

std::vector<int> RecoveryStoreQt::knownNumbers() const
{
    std::set<int> numbers;
    std::error_code error;
    for (const auto &folder : {m_folder, m_records})
        for (const auto &entry : fs::directory_iterator(folder, error))
            numbers.insert(numberIn(entry.path().filename().string()));
    numbers.erase(0);
    return {numbers.begin(), numbers.end()};
}

void RecoveryStoreQt::takeNumber()
{
    for (int number = 1; number <= mostPrograms; ++number) {
        m_lock = lock(number);
        if (m_lock) {
            m_number = number;
            return;
        }
    }
}

void RecoveryStoreQt::putLeftoversAside(int number)
{
    const auto held = number == m_number ? FileHandle() : lock(number);
    if (number != m_number && !held)
        return;
    const auto record = ownFile(number, ".record");
    const auto crash = ownFile(number, ".crash");
    const auto autosave = autosaveFile(number);
    // What was written while the program broke down is later, if it is whole.
    if (const auto last = contentOf(crash); last && readRecord(*last)) {
        toBackups(record, record);
        ::rename(crash.c_str(), record.c_str());
    } else if (last) {
        toBackups(crash, crash);
    }
    const auto autosaved = contentOf(autosave);
    const bool recorded = fs::exists(fs::path(record));
    // One text is offered once: in its later form.
    const bool recordIsLater = recorded && changeTime(record) >= changeTime(autosave);
    if (autosaved && (autosaved->empty() || recordIsLater))
        toBackups(autosave, autosave);
    else if (autosaved)
        ::rename(autosave.c_str(), keptFile(".txt").c_str());
    if (recorded && (recordIsLater || !autosaved))
        ::rename(record.c_str(), keptFile(".record").c_str());
    else if (recorded)
        toBackups(record, record);
    if (number != m_number)
        ::unlink(ownFile(number, ".lock").c_str());
}

void RecoveryStoreQt::toBackups(const std::string &file, const std::string &as)
{
    const auto bytes = contentOf(file);
    if (bytes && (bytes->empty() || m_backups.keep(as, *bytes)))
        ::unlink(file.c_str());
}

void RecoveryStoreQt::writeRecord(TextSnapshot snapshot)
{
    if (m_number > 0)
        m_writer.write(
            ownFile(m_number, ".record"), [snapshot = std::move(snapshot)] { return recordBytes(snapshot); });
}

void RecoveryStoreQt::writeCrashRecord(const TextSnapshot &snapshot)
{
    if (m_number > 0)
        std::ignore = writeAtomically(ownFile(m_number, ".crash"), recordBytes(snapshot));
}

void RecoveryStoreQt::removeRecord()
{
    if (m_number > 0)
        m_writer.remove(ownFile(m_number, ".record"));
}

void RecoveryStoreQt::setRecordAside()
{
    m_writer.finish();
    ::rename(ownFile(m_number, ".record").c_str(), keptFile(".record").c_str());
}

void RecoveryStoreQt::writeAutosave(TextSnapshot snapshot)
{
    if (m_number > 0)
        m_writer.write(
            autosaveFile(m_number), [snapshot = std::move(snapshot)] { return fileBytes(snapshot); });
}

void RecoveryStoreQt::removeAutosave(bool written)
{
    if (m_number == 0)
        return;
    m_writer.finish();
    const auto file = autosaveFile(m_number);
    if (written)
        m_writer.remove(file);
    else
        toBackups(file, file);
}

std::vector<std::string> RecoveryStoreQt::list()
{
    std::vector<std::string> names;
    std::error_code error;
    for (const auto &entry : fs::directory_iterator(m_records, error)) {
        const auto name = entry.path().filename().string();
        auto file = openFile(entry.path().string(), O_RDONLY | O_NOFOLLOW);
        if (!name.starts_with(keptPrefix) || !takeLock(file))
            continue;
        m_claimed.insert_or_assign(name, std::move(file));
        names.push_back(name);
    }
    std::ranges::sort(names);
    return names;
}

std::optional<RecoveryRecord> RecoveryStoreQt::open(const std::string &text)
{
    const auto bytes = contentOf(m_records + '/' + text);
    if (!bytes)
        return std::nullopt;
    if (text.ends_with(".txt"))
        return RecoveryRecord{{}, *bytes, decodeFile(*bytes, TextKind::Page).format};
    auto record = readRecord(*bytes);
    if (!record)
        discard(text);
    return record;
}

void RecoveryStoreQt::removeSaved(const std::string &text)
{
    ::unlink((m_records + '/' + text).c_str());
    m_claimed.erase(text);
}

void RecoveryStoreQt::discard(const std::string &text)
{
    const auto file = m_records + '/' + text;
    const auto bytes = contentOf(file);
    const auto record = bytes ? readRecord(*bytes) : std::nullopt;
    // The text itself is what may be looked for later, not the record around it.
    if (record && m_backups.keep(record->path.empty() ? "untitled.txt" : record->path, record->bytes))
        ::unlink(file.c_str());
    else
        toBackups(file, text);
    m_claimed.erase(text);
}

} // namespace kevra
