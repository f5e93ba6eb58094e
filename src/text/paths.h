// SPDX-License-Identifier: GPL-3.0-or-later
// Taking paths apart. '/' and '\' both separate, whatever the platform.
#pragma once

#include "text/words.h"

#include <string>
#include <string_view>

namespace kevra {

/// The text after the last separator.
[[nodiscard]] std::string_view fileName(std::string_view path);
/// What stands before the last separator; a root keeps its separator. Empty when there is none.
[[nodiscard]] std::string_view parentFolder(std::string_view path);
/// The text after the last dot of the file name, as written; empty without a dot.
[[nodiscard]] std::string_view extension(std::string_view path);
/// `text` with a to z made capital.
[[nodiscard]] std::string upperAscii(std::string_view text);
/// A relative path as it is meant from the current folder; any other as it stands.
[[nodiscard]] std::string absolutePath(const std::string &path);
/// `folder` without one trailing separator; a root that is nothing else keeps it.
[[nodiscard]] std::string_view withoutTrailingSeparator(std::string_view folder);

} // namespace kevra
