// SPDX-License-Identifier: GPL-3.0-or-later
// The record of the document's text, so that a crash loses at most a few seconds of typing.
#pragma once

#include "encoding/text_codec.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kevra {

/// A copy of the text with all that is needed to write it later, on another thread.
struct TextSnapshot {
    std::string path; ///< empty for new work
    FileForm file;
    std::string text;
};

struct RecoveryRecord {
    std::string path; ///< empty for new work
    std::string bytes; ///< what a save would have written
    TextFormat format;
    std::int64_t time = 0; ///< when it was written, seconds since 1970; 0 when not known
    std::uint64_t sequence = 0; ///< larger than that of every record written before; 0 when not known
};

[[nodiscard]] std::string fileBytes(const TextSnapshot &snapshot);
[[nodiscard]] std::string recordBytes(const TextSnapshot &snapshot, std::uint64_t sequence);
/// Nothing unless the record is complete.
[[nodiscard]] std::optional<RecoveryRecord> readRecord(std::string_view bytes);

} // namespace kevra
