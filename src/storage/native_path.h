// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "storage/default_folder.h"

#include <string>

namespace kevra {

/// `path` on this system, which has no drive letters: the default temporary folder and paths in it are mapped
/// to `documents`, the user's documents folder, which is created if missing.
[[nodiscard]] std::string nativePath(const std::string &path, const std::string &documents);

} // namespace kevra
