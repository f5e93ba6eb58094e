// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "storage/file_store.h"
#include "storage/recovery_record.h"

#include <span>
#include <string>

namespace kevra {

/// Details for the question about a recovered text: its file, time, size and first lines.
[[nodiscard]] std::string recoveryDetails(const RecoveryRecord &text);
/// What a bar says while the unsaved text is in no record; empty when it is in one.
[[nodiscard]] std::string recordNotice(WriteOutcome outcome);
/// What a bar says of `files`, which lie where records or settings belong but are no regular files, and were
/// left alone. Empty when there are none.
[[nodiscard]] std::string passedOverNotice(std::span<const std::string> files);

} // namespace kevra
