// SPDX-License-Identifier: GPL-3.0-or-later
// Writing into a file that must stay the same file: one with several names, with another owner, or in a
// folder that takes no new files. The old and the new bytes are on the disk elsewhere before the first byte
// is touched, so that a torn file can be completed.
#pragma once

#include "storage/file_store.h"

#include <functional>
#include <string>
#include <string_view>

namespace kevra {

/// What the file held, and where both contents lie while it is written.
struct InPlace {
    std::function<void(std::string_view)> replaced; ///< sees the old bytes; may be empty
    std::string copy; ///< out: where both lie, when the outcome is Torn
};

/// `stateFolder` takes the copies. After a failure the file has its old bytes again, unless it is Torn.
[[nodiscard]] Saved writeInPlace(
    const std::string &target, std::string_view bytes, const std::string &stateFolder, InPlace &about);

/// Completes the writes that a crash or power cut tore; files that are used by a running program, or were
/// changed by somebody since, are left alone.
void completeTornWrites(const std::string &stateFolder);

} // namespace kevra
