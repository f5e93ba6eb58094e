// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/recovery_store_posix.h"

#include "storage/atomic_write_posix.h"
#include "storage/checksummed_record.h"
#include "storage/in_place_write_posix.h"

#include <algorithm>
#include <charconv>
#include <fcntl.h>
#include <filesystem>

namespace fs = std::filesystem;

namespace kevra {
namespace {

constexpr auto recordName = "record";
constexpr auto autosaveName = "autosave";
constexpr auto savedName = "saved";

// Written in an autosave file's note instead of its sequence number.
constexpr std::string_view documentSaved = "saved"; ///< the document was saved after the autosave
constexpr std::string_view isTheDocument = "document"; ///< the user saved a document under this name

std::vector<RecordFolder> recordFolders(const RecoveryStorePosix::Folders &folders)
{
    std::vector<RecordFolder> all;
    all.emplace_back(folders.state + "/recovery", RecordFolder::Place::Private);
    for (const auto &spare : folders.spare)
        all.emplace_back(spare, RecordFolder::Place::Shared);
    return all;
}

constexpr std::int64_t nanoseconds = 1'000'000'000; ///< per second

std::int64_t changeTime(const std::string &path)
{
    struct stat status { };
    return ::lstat(path.c_str(), &status) == 0
        ? std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec
        : 0;
}

std::optional<RecoveryRecord> recordIn(const std::string &file)
{
    const auto bytes = regularContent(file);
    return bytes ? readRecord(*bytes) : std::nullopt;
}

} // namespace

/// An autosave file and the contents of its note.
struct RecoveryStorePosix::Autosaved {
    std::string bytes;
    std::string path; ///< of the document; empty for new work
    std::uint64_t sequence = 0; ///< 0: there is no valid note
    std::string status; ///< the sequence number, or why it is not offered

    /// Whether a record of the same instance has a later text.
    [[nodiscard]] bool isBefore(const RecoveryRecord &record, bool recordFileIsLater) const
    {
        return sequence > 0 && record.sequence > 0 ? sequence < record.sequence : recordFileIsLater;
    }
};

RecoveryStorePosix::RecoveryStorePosix(
    Folders folders, BackupStore &backups, std::function<void()> outcomeChanged)
    : m_stateFolder(folders.state)
    , m_folders(recordFolders(folders))
    , m_sequence(records().path() + "/sequence")
    , m_backups(backups)
    , m_writer(std::move(outcomeChanged))
{
    std::ignore = records().open(); // tried again at each write, which reports the failure
    completeTornWrites(records().path());
    for (auto &folder : m_folders)
        findLeftovers(folder);
}

RecoveryStorePosix::~RecoveryStorePosix()
{
    m_writer.finish();
    for (auto &folder : m_folders)
        folder.close();
}

std::string RecoveryStorePosix::autosaveFile(int number) const
{
    return m_stateFolder + (number == 1 ? "/autosave" : "/autosave-" + std::to_string(number)) + ".txt";
}

void RecoveryStorePosix::notePassedOver(const std::string &file)
{
    if (isIrregularFile(file))
        m_passedOver.push_back(file);
}

void RecoveryStorePosix::findLeftovers(RecordFolder &folder)
{
    if (!folder.exists()) {
        struct stat status { };
        if (::lstat(folder.path().c_str(), &status) == 0)
            m_passedOver.push_back(folder.path());
        return;
    }
    for (const auto &name : namesIn(folder.path())) {
        notePassedOver(folder.path() + '/' + name);
        m_sequence.startAfter(asideSequence(name).value_or(0));
    }
    auto numbers = folder.numbers();
    if (&folder == &records())
        for (auto &name : namesIn(m_stateFolder)) {
            const int number = numberIn(name);
            if (number == 0)
                continue;
            notePassedOver(m_stateFolder + '/' + name);
            if (std::ranges::find(numbers, number) == numbers.end())
                numbers.push_back(number);
        }
    for (const int number : numbers)
        putLeftoversAside(folder, number);
}

std::optional<RecoveryStorePosix::Autosaved> RecoveryStorePosix::autosavedBy(int number) const
{
    auto bytes = regularContent(autosaveFile(number));
    if (!bytes)
        return std::nullopt;
    Autosaved text{std::move(*bytes), {}, 0, {}};
    const auto about = regularContent(m_folders.front().file(number, ".autosave"));
    const auto fields = about ? readChecksummed(*about) : std::nullopt;
    // The note is valid only for these bytes.
    if (fields && fields->size() == 3 && (*fields)[2] == std::to_string(fingerprint(text.bytes))) {
        text.path = (*fields)[0];
        text.status = (*fields)[1];
        std::from_chars((*fields)[1].data(), (*fields)[1].data() + (*fields)[1].size(), text.sequence);
    }
    return text;
}

void RecoveryStorePosix::takeCrashRecord(const std::string &record, const std::string &crash)
{
    const auto last = recordIn(crash);
    if (!last)
        return moveToBackups(crash, crash);
    const auto before = recordIn(record);
    if (before && before->bytes != last->bytes)
        moveToBackups(record, record);
    ::rename(crash.c_str(), record.c_str());
}

/// Whether the record is offered as well. One text is offered once, in its later form; the other form is kept
/// as a version of it.
bool RecoveryStorePosix::putAutosaveAside(
    int number, const Autosaved &autosaved, const std::optional<RecoveryRecord> &recorded, bool before)
{
    const auto autosave = autosaveFile(number);
    const bool oneText = !recorded || autosaved.sequence == 0 || autosaved.path == recorded->path;
    if (autosaved.bytes.empty() || autosaved.status == documentSaved || (before && oneText)) {
        const auto &path = recorded && !recorded->path.empty() ? recorded->path : autosaved.path;
        moveToBackups(autosave, path.empty() ? autosave : path);
        return recorded.has_value();
    }
    const auto sequence = autosaved.sequence > 0 ? autosaved.sequence : m_sequence.next();
    std::ignore = records().setAside(autosave, sequence, number, ".txt"); // else it stays where it is
    return recorded && !oneText;
}

void RecoveryStorePosix::putLeftoversAside(RecordFolder &folder, int number)
{
    const bool ours = number == folder.number();
    const auto held = ours ? FileHandle() : folder.lock(number);
    if (!ours && !held)
        return;
    const auto record = folder.file(number, ".record");
    // A crash record is later than the normal record, if it is complete.
    takeCrashRecord(record, folder.file(number, ".crash"));
    const auto recorded = recordIn(record);
    if (!recorded)
        moveToBackups(record, record);
    const auto autosave = autosaveFile(number);
    auto autosaved = &folder == &records() ? autosavedBy(number) : std::nullopt;
    const bool document = autosaved && autosaved->status == isTheDocument;
    if (document)
        autosaved.reset();
    bool recordIsOffered = recorded.has_value();
    if (autosaved) {
        const bool before
            = recorded && autosaved->isBefore(*recorded, changeTime(record) >= changeTime(autosave));
        recordIsOffered = putAutosaveAside(number, *autosaved, recorded, before);
    }
    if (recordIsOffered)
        std::ignore = folder.setAside(record, recorded->sequence, number, ".record"); // the same
    else if (recorded)
        moveToBackups(record, record);
    if (!document)
        ::unlink(folder.file(number, ".autosave").c_str());
    if (!ours)
        ::unlink(folder.file(number, ".lock").c_str());
}

void RecoveryStorePosix::moveToBackups(const std::string &file, const std::string &as, KeptReason reason)
{
    const auto bytes = regularContent(file);
    const auto record = bytes ? readRecord(*bytes) : std::nullopt;
    const auto path = record && !record->path.empty() ? record->path : record ? "untitled.txt" : as;
    // Users look for the text, not for the record that contains it.
    if (bytes && (bytes->empty() || m_backups.keep(path, record ? record->bytes : *bytes, reason)))
        ::unlink(file.c_str());
}

WriteOutcome RecoveryStorePosix::writeText(const TextSnapshot &snapshot, const char *kind)
{
    const auto bytes = recordBytes(snapshot, m_sequence.next());
    std::optional<WriteOutcome> failure;
    for (auto &folder : m_folders) {
        auto saved = folder.open();
        if (saved == WriteOutcome::Ok)
            saved = writePrivately(folder.ownFile(kind), bytes);
        if (saved == WriteOutcome::Ok) {
            removeRecordsExcept(&folder);
            return WriteOutcome::Ok;
        }
        failure = failure.value_or(saved);
    }
    return *failure;
}

void RecoveryStorePosix::removeRecordsExcept(const RecordFolder *kept)
{
    for (auto &folder : m_folders)
        if (folder.number() > 0 && &folder != kept)
            ::unlink(folder.ownFile(".record").c_str());
}

void RecoveryStorePosix::writeRecord(TextSnapshot snapshot)
{
    m_writer.run(
        recordName, [this, snapshot = std::move(snapshot)] { return writeText(snapshot, ".record"); });
}

void RecoveryStorePosix::writeCrashRecord(const TextSnapshot &snapshot)
{
    std::ignore = writeText(snapshot, ".crash"); // nobody is left to report to
}

WriteOutcome RecoveryStorePosix::recordOutcome() const
{
    return m_writer.outcome(recordName);
}

void RecoveryStorePosix::removeRecord()
{
    m_writer.drop(recordName);
    removeRecordsExcept(nullptr);
}

bool RecoveryStorePosix::setRecordAside()
{
    m_writer.finish();
    if (recordOutcome() != WriteOutcome::Ok)
        return false;
    m_writer.drop(recordName);
    for (const auto &folder : m_folders) {
        const auto record = folder.ownFile(".record");
        const auto text = folder.number() > 0 ? recordIn(record) : std::nullopt;
        if (text && !folder.setAside(record, text->sequence, folder.number(), ".record"))
            return false;
    }
    return true;
}

bool RecoveryStorePosix::autosaveIsDocument() const
{
    const auto autosaved = autosavedBy(m_folders.front().number());
    return autosaved && autosaved->status == isTheDocument;
}

WriteOutcome RecoveryStorePosix::noteAutosave(
    const std::string &path, std::string_view status, std::string_view bytes)
{
    return writePrivately(records().ownFile(".autosave"),
        withChecksum({path, std::string(status), std::to_string(fingerprint(bytes))}));
}

WriteOutcome RecoveryStorePosix::writeAutosaveFile(const TextSnapshot &snapshot)
{
    // The record still has the text.
    if (autosaveIsDocument())
        return WriteOutcome::Ok;
    const auto bytes = fileBytes(snapshot);
    const auto saved = writePrivately(autosaveFile(records().number()), bytes);
    if (saved == WriteOutcome::Ok)
        std::ignore = noteAutosave(snapshot.path, std::to_string(m_sequence.next()), bytes);
    return saved;
}

void RecoveryStorePosix::textSaved(const std::string &path)
{
    if (records().number() > 0)
        m_writer.run(savedName, [this, path] {
            noteSaved(path);
            return WriteOutcome::Ok;
        });
}

void RecoveryStorePosix::noteSaved(const std::string &path)
{
    const auto autosaved = autosavedBy(records().number());
    std::error_code missing;
    if (autosaved && fs::equivalent(path, autosaveFile(records().number()), missing))
        std::ignore = noteAutosave(path, isTheDocument, autosaved->bytes);
    else if (autosaved && autosaved->path == path && autosaved->status != isTheDocument)
        std::ignore = noteAutosave(path, documentSaved, autosaved->bytes);
}

void RecoveryStorePosix::writeAutosave(TextSnapshot snapshot)
{
    if (records().number() > 0)
        m_writer.run(
            autosaveName, [this, snapshot = std::move(snapshot)] { return writeAutosaveFile(snapshot); });
}

void RecoveryStorePosix::removeAutosave(bool written)
{
    if (records().number() == 0)
        return;
    m_writer.finish();
    m_writer.drop(autosaveName);
    if (autosaveIsDocument())
        return;
    const auto file = autosaveFile(records().number());
    ::unlink(records().ownFile(".autosave").c_str());
    if (written && !isIrregularFile(file))
        ::unlink(file.c_str());
    else
        moveToBackups(file, file);
}

std::vector<std::string> RecoveryStorePosix::list()
{
    std::vector<std::pair<std::uint64_t, std::string>> texts;
    for (const auto &folder : m_folders) {
        for (const auto &name : folder.exists() ? namesIn(folder.path()) : std::vector<std::string>()) {
            const auto sequence = asideSequence(name);
            auto path = folder.path() + '/' + name;
            auto file = sequence ? openFile(path, O_RDONLY | O_NOFOLLOW) : FileHandle();
            if (!takeLock(file))
                continue;
            m_claimed.insert_or_assign(path, std::move(file));
            texts.emplace_back(*sequence, std::move(path));
        }
    }
    std::ranges::sort(texts, std::greater{});
    std::vector<std::string> paths;
    for (auto &[sequence, path] : texts)
        paths.push_back(std::move(path));
    return paths;
}

std::optional<RecoveryRecord> RecoveryStorePosix::open(const std::string &text)
{
    const auto bytes = regularContent(text);
    if (!bytes)
        return std::nullopt;
    if (text.ends_with(".txt"))
        return RecoveryRecord{
            {}, *bytes, decodeFile(*bytes, TextKind::Page).format, changeTime(text) / nanoseconds};
    auto record = readRecord(*bytes);
    if (record)
        record->time = changeTime(text) / nanoseconds;
    else
        discard(text);
    return record;
}

void RecoveryStorePosix::removeSaved(const std::string &text)
{
    ::unlink(text.c_str());
    m_claimed.erase(text);
}

void RecoveryStorePosix::discard(const std::string &text)
{
    moveToBackups(text, text, KeptReason::GivenUp);
    m_claimed.erase(text);
}

} // namespace kevra
