// SPDX-License-Identifier: GPL-3.0-or-later
// What each running program, and each that was killed, has recorded of the page it put beside a document.
#pragma once

#include "storage/file_store.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

struct PreviewRecord {
    std::string page; ///< path of the page
    std::uint64_t fingerprint = 0; ///< of its bytes
    std::string aside; ///< where the user's file of that name lies meanwhile; empty when there was none
    std::optional<FileStamp> original; ///< of the user's file

    friend bool operator==(const PreviewRecord &, const PreviewRecord &) = default;
};

[[nodiscard]] std::string previewRecordBytes(const PreviewRecord &record);
[[nodiscard]] std::optional<PreviewRecord> readPreviewRecord(std::string_view bytes);

class PreviewRecords {
public:
    struct Entry {
        std::string name;
        PreviewRecord record; ///< empty when the record cannot be read
        bool alive = false; ///< the program that wrote it is running
    };

    virtual ~PreviewRecords() = default;
    /// No other program changes its records or pages meanwhile.
    virtual void exclusively(const std::function<void()> &step) = 0;
    [[nodiscard]] virtual std::vector<Entry> all() const = 0;
    [[nodiscard]] virtual std::string own() const = 0; ///< name of this program's record; empty without one
    /// This program's record, in place of the one before. Best effort: it only matters after a kill.
    virtual void write(const PreviewRecord &record) = 0;
    /// Its own record, as a killed program leaves it.
    virtual void leaveOwn() = 0;
    virtual void drop(const std::string &name) = 0;
};

} // namespace kevra
