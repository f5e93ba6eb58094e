// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "storage/default_folder.h"

#include <string>

namespace kevra {

/// `path` as this machine has it. There are no drive letters here: the default temporary folder, and what
/// lies in it, is read as `documents`, the user's documents folder, which is created when it is missing.
[[nodiscard]] std::string nativePath(const std::string &path, const std::string &documents);

} // namespace kevra
