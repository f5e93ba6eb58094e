// SPDX-License-Identifier: GPL-3.0-or-later
// The recovery records and autosave files of this instance, and those left by dead ones. A record is written
// to the state folder, or to the first spare folder that works.
#pragma once

#include "storage/background_writer_posix.h"
#include "storage/backup_store.h"
#include "storage/record_folder_posix.h"
#include "storage/record_store.h"
#include "storage/sequence_posix.h"

#include <map>
#include <string>
#include <vector>

namespace kevra {

class RecoveryStorePosix : public RecordStore, public RecoverableTexts {
public:
    struct Folders {
        std::string state; ///< for autosave files; records go into a subfolder
        std::vector<std::string> spare; ///< for records; created only when the folders before fail
    };
    /// Takes an instance number and sets aside the files of dead instances. `outcomeChanged` is called on
    /// another thread when recordOutcome() may have changed.
    RecoveryStorePosix(
        Folders folders, BackupStore &backups, std::function<void()> outcomeChanged = [] {});
    ~RecoveryStorePosix() override;

    void writeRecord(TextSnapshot snapshot) override;
    void writeCrashRecord(const TextSnapshot &snapshot) override;
    void removeRecord() override;
    [[nodiscard]] bool setRecordAside() override;
    void writeAutosave(TextSnapshot snapshot) override;
    void textSaved(const std::string &path) override;
    void finish() override { m_writer.finish(); }
    /// Ok if the last record is on the disk, else why it is not.
    [[nodiscard]] WriteOutcome recordOutcome() const;
    /// Removes this instance's autosave file, or moves it to the backups unless this run has `written` it.
    void removeAutosave(bool written);
    /// Files that were skipped because they are not regular files.
    [[nodiscard]] const std::vector<std::string> &passedOver() const { return m_passedOver; }

    /// The newest text first.
    [[nodiscard]] std::vector<std::string> list() override;
    [[nodiscard]] std::optional<RecoveryRecord> open(const std::string &text) override;
    void removeSaved(const std::string &text) override;
    void discard(const std::string &text) override;

private:
    struct Autosaved;

    [[nodiscard]] RecordFolder &records() { return m_folders.front(); }
    [[nodiscard]] std::string autosaveFile(int number) const;
    [[nodiscard]] WriteOutcome writeText(const TextSnapshot &snapshot, const char *kind);
    [[nodiscard]] bool autosaveIsDocument() const;
    void noteSaved(const std::string &path);
    [[nodiscard]] WriteOutcome noteAutosave(
        const std::string &path, std::string_view status, std::string_view bytes);
    [[nodiscard]] WriteOutcome writeAutosaveFile(const TextSnapshot &snapshot);
    void removeRecordsExcept(const RecordFolder *kept);
    void findLeftovers(RecordFolder &folder);
    /// `before`: the autosaved text is older than the recorded one.
    [[nodiscard]] bool putAutosaveAside(
        int number, const Autosaved &autosaved, const std::optional<RecoveryRecord> &recorded, bool before);
    void putLeftoversAside(RecordFolder &folder, int number);
    void takeCrashRecord(const std::string &record, const std::string &crash);
    [[nodiscard]] std::optional<Autosaved> autosavedBy(int number) const;
    void moveToBackups(
        const std::string &file, const std::string &as, KeptReason reason = KeptReason::EarlierForm);
    void notePassedOver(const std::string &file);

    std::string m_stateFolder;
    std::vector<RecordFolder> m_folders; ///< the subfolder of the state folder first
    Sequence m_sequence;
    BackupStore &m_backups;
    std::vector<std::string> m_passedOver;
    std::map<std::string, FileHandle> m_claimed; ///< recoverable texts locked by this instance
    BackgroundWriter m_writer;
};

} // namespace kevra
