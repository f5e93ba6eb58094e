// SPDX-License-Identifier: GPL-3.0-or-later
// The recovery records and autosave files of all running programs in one folder. Each program has a number
// with a lock that ends with it, so that what a dead one left is told from what a live one writes.
#pragma once

#include "document/recovery_journal.h"
#include "document/recovery_offer.h"
#include "storage/background_writer_qt.h"
#include "storage/backup_store.h"
#include "storage/file_handle_qt.h"

#include <map>
#include <string>
#include <vector>

namespace kevra {

class RecoveryStoreQt : public RecordStore, public RecoverableTexts {
public:
    /// Takes a number and puts aside what dead programs left. Without a writable folder it keeps nothing.
    RecoveryStoreQt(std::string folder, BackupStore &backups);
    ~RecoveryStoreQt() override;

    void writeRecord(TextSnapshot snapshot) override;
    void writeCrashRecord(const TextSnapshot &snapshot) override;
    void removeRecord() override;
    void setRecordAside() override;
    void writeAutosave(TextSnapshot snapshot) override;
    void finish() override { m_writer.finish(); }
    /// The autosave file of this program; one that it did not write goes to the backups.
    void removeAutosave(bool written);

    [[nodiscard]] std::vector<std::string> list() override;
    [[nodiscard]] std::optional<RecoveryRecord> open(const std::string &text) override;
    void removeSaved(const std::string &text) override;
    void discard(const std::string &text) override;

private:
    [[nodiscard]] std::string ownFile(int number, const char *kind) const;
    [[nodiscard]] std::string autosaveFile(int number) const;
    [[nodiscard]] std::string keptFile(const char *kind) const;
    [[nodiscard]] FileHandle lock(int number) const;
    [[nodiscard]] std::vector<int> knownNumbers() const;
    void takeNumber();
    void putLeftoversAside(int number);
    void toBackups(const std::string &file, const std::string &as);

    std::string m_folder;
    std::string m_records; ///< the folder of the records
    BackupStore &m_backups;
    int m_number = 0; ///< 0: nothing can be kept
    FileHandle m_lock;
    std::map<std::string, FileHandle> m_claimed; ///< texts left behind that this program deals with
    BackgroundWriterQt m_writer;
};

} // namespace kevra
