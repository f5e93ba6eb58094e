// SPDX-License-Identifier: GPL-3.0-or-later
// What the program writes down of the text in the document, so that a crash costs seconds of typing at most.
#pragma once

#include "encoding/text_codec.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kevra {

/// The text at one moment with all it takes to write it; costs a copy of the text, the rest can be done
/// elsewhere and later.
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
/// Nothing unless the record is whole.
[[nodiscard]] std::optional<RecoveryRecord> readRecord(std::string_view bytes);

} // namespace kevra
