// SPDX-License-Identifier: GPL-3.0-or-later
// The records of unsaved text: those this program writes, and those that an earlier one left.
#pragma once

#include "storage/recovery_record.h"

#include <optional>
#include <string>
#include <vector>

namespace kevra {

/// Where the records of this running program go.
class RecordStore {
public:
    virtual ~RecordStore() = default;
    /// Replaces the record; done soon, without keeping the caller waiting.
    virtual void writeRecord(TextSnapshot snapshot) = 0;
    /// At once and beside the record: the program has broken down.
    virtual void writeCrashRecord(const TextSnapshot &snapshot) = 0;
    virtual void removeRecord() = 0;
    /// The record stays for the next start, and a new one can begin. False when it is not on the disk.
    [[nodiscard]] virtual bool setRecordAside() = 0;
    virtual void writeAutosave(TextSnapshot snapshot) = 0;
    /// An autosave file of the text that `path` now holds is not to be offered, nor `path` taken for one.
    virtual void textSaved(const std::string &path) = 0;
    /// Everything has been written, or tried again, when this returns.
    virtual void finish() = 0;
};

/// The texts left behind, which no other running program is dealing with.
class RecoverableTexts {
public:
    virtual ~RecoverableTexts() = default;
    [[nodiscard]] virtual std::vector<std::string> list() = 0;
    [[nodiscard]] virtual std::optional<RecoveryRecord> open(const std::string &text) = 0;
    virtual void removeSaved(const std::string &text) = 0;
    /// Not wanted; it is kept for a time, as replaced files are.
    virtual void discard(const std::string &text) = 0;
};

} // namespace kevra
