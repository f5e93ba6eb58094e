// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "storage/file_store.h"

#include <string>
#include <string_view>

struct stat;

namespace kevra {

/// Atomically replaces `target`, which must not be a link, by a new file that is synchronised to the disk.
/// Keeps mode, group and extended attributes; Denied if it cannot. Where there was no file, the new one is no
/// more accessible to others than `original`, if given. `replaced`, if set, receives the old bytes once no
/// other program can change them under this name.
[[nodiscard]] WriteOutcome writeAtomically(const std::string &target, std::string_view bytes,
    const struct stat *original = nullptr, const FileStore::Replaced &replaced = {});

/// The same, but the file is readable only by its owner, even if the old one was not.
[[nodiscard]] WriteOutcome writePrivately(const std::string &target, std::string_view bytes);

/// Removes temporary files that killed saves left in the folder of `path`.
void removeLeftovers(const std::string &path);

} // namespace kevra
