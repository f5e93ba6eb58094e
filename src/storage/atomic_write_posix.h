// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "storage/file_store.h"

#include <string>
#include <string_view>

struct stat;

namespace kevra {

/// Puts a new file, whole and on the disk, in the place of `target`, which is no link. Keeps mode, group and
/// extended attributes; where it cannot, the outcome is Denied. Until the last step the old file stands.
/// A file that is new there is no more open to others than `original` is, if there is one.
/// `replaced`, if there is one, sees the bytes of the old file once nobody can change them under this name
/// any more.
[[nodiscard]] Saved writeAtomically(const std::string &target, std::string_view bytes,
    const struct stat *original = nullptr, const FileStore::Replaced &replaced = {});

/// The same; in the end nobody but its owner can read it, whoever could before.
[[nodiscard]] Saved writePrivately(const std::string &target, std::string_view bytes);

/// Removes what a save that was killed between two steps left in the folder of `path`.
void removeLeftovers(const std::string &path);

} // namespace kevra
