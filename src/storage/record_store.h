// SPDX-License-Identifier: GPL-3.0-or-later
// Records of unsaved text: those of this run, and those left by earlier runs.
#pragma once

#include "storage/recovery_record.h"

#include <optional>
#include <string>
#include <vector>

namespace kevra {

/// Stores the records of this run.
class RecordStore {
public:
    virtual ~RecordStore() = default;
    /// Replaces the record, in the background.
    virtual void writeRecord(TextSnapshot snapshot) = 0;
    /// Writes at once, beside the record: the program has crashed.
    virtual void writeCrashRecord(const TextSnapshot &snapshot) = 0;
    virtual void removeRecord() = 0;
    /// Keeps the record for the next start, so that a new one can begin. False when it is not on the disk.
    [[nodiscard]] virtual bool setRecordAside() = 0;
    virtual void writeAutosave(TextSnapshot snapshot) = 0;
    /// An autosave file of the text now saved in `path` is no longer offered, and `path` itself is never
    /// taken for one.
    virtual void textSaved(const std::string &path) = 0;
    /// Returns when everything has been written or retried.
    virtual void finish() = 0;
};

/// The texts left by earlier runs and not claimed by another running instance.
class RecoverableTexts {
public:
    virtual ~RecoverableTexts() = default;
    [[nodiscard]] virtual std::vector<std::string> list() = 0;
    [[nodiscard]] virtual std::optional<RecoveryRecord> open(const std::string &text) = 0;
    virtual void removeSaved(const std::string &text) = 0;
    /// The user does not want the text; it is kept for a time as a version.
    virtual void discard(const std::string &text) = 0;
};

} // namespace kevra
