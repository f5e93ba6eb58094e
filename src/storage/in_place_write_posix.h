// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a file that cannot be replaced: one with several hard links, with another owner, or in a folder
// where no file can be created. A safety copy of the old and new bytes is on the disk before the write
// starts, so that a torn file can be completed.
#pragma once

#include "storage/file_store.h"

#include <functional>
#include <string>
#include <string_view>

namespace kevra {

/// Input and output of writeInPlace().
struct InPlaceContext {
    std::function<void(std::string_view)> replaced; ///< receives the old bytes; may be empty
    std::string copy; ///< out: path of the safety copy, if the outcome is Torn
};

/// `stateFolder` holds the safety copy. After a failure the file has its old bytes, unless the outcome is
/// Torn.
[[nodiscard]] WriteOutcome writeInPlace(const std::string &target, std::string_view bytes,
    const std::string &stateFolder, InPlaceContext &context);

/// Completes writes that a crash or power cut interrupted. Skips files that a running instance is writing or
/// that were changed since.
void completeTornWrites(const std::string &stateFolder);

} // namespace kevra
