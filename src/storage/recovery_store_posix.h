// SPDX-License-Identifier: GPL-3.0-or-later
// The recovery records and autosave files of this program, and what dead ones left. A record goes into the
// state folder, and where that cannot be written into the first spare folder that can.
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
        std::string state; ///< the autosave files; the records in a folder of their own in it
        std::vector<std::string> spare; ///< for records; used, and made, only when one before cannot be
    };
    /// Takes a number and puts aside what dead programs left. `outcomeChanged` runs on another thread when
    /// recordOutcome() may answer something else.
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
    /// Whether the last record is on the disk; why it is not.
    [[nodiscard]] Saved recordOutcome() const;
    /// The autosave file of this program; one that it did not write goes to the backups.
    void removeAutosave(bool written);
    /// What of all this is no regular file and was left alone.
    [[nodiscard]] const std::vector<std::string> &passedOver() const { return m_passedOver; }

    /// The text written last comes first.
    [[nodiscard]] std::vector<std::string> list() override;
    [[nodiscard]] std::optional<RecoveryRecord> open(const std::string &text) override;
    void removeSaved(const std::string &text) override;
    void discard(const std::string &text) override;

private:
    struct Autosaved;

    [[nodiscard]] RecordFolder &records() { return m_folders.front(); }
    [[nodiscard]] std::string autosaveFile(int number) const;
    [[nodiscard]] Saved writeText(const TextSnapshot &snapshot, const char *kind);
    [[nodiscard]] bool autosaveIsDocument() const;
    void noteSaved(const std::string &path);
    [[nodiscard]] Saved noteAutosave(
        const std::string &path, std::string_view standing, std::string_view bytes);
    [[nodiscard]] Saved writeAutosaveFile(const TextSnapshot &snapshot);
    void removeRecordsBut(const RecordFolder *kept);
    void findLeftovers(RecordFolder &folder);
    void putLeftoversAside(RecordFolder &folder, int number);
    void takeCrashRecord(const std::string &record, const std::string &crash);
    [[nodiscard]] std::optional<Autosaved> autosavedBy(int number) const;
    void toBackups(
        const std::string &file, const std::string &as, KeptReason reason = KeptReason::EarlierForm);
    void notePassedOver(const std::string &file);

    std::string m_stateFolder;
    std::vector<RecordFolder> m_folders; ///< the state folder's first
    Sequence m_sequence;
    BackupStore &m_backups;
    std::vector<std::string> m_passedOver;
    std::map<std::string, FileHandle> m_claimed; ///< texts left behind that this program deals with
    BackgroundWriter m_writer;
};

} // namespace kevra
