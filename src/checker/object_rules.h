// SPDX-License-Identifier: GPL-3.0-or-later
// Methods and properties of the scripting objects that are written without an object before them.
#pragma once

#include "checker/fault.h"

#include <string_view>
#include <vector>

namespace kevra {

/// Every member without its object: first those of the FileSystemObject, then of the shell, then of text
/// streams, drives and folders; among these by the order of the member lists, then by position. If
/// `all` is false, only the first one, which a run reports.
[[nodiscard]] std::vector<Fault> CheckObjectReferences(std::string_view text, bool all = false);

} // namespace kevra
