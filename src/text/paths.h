// SPDX-License-Identifier: GPL-3.0-or-later
// The parts of a path. On every platform '/' separates, and '\' too unless the path starts with '/'.
#pragma once

#include "text/words.h"

#include <string>
#include <string_view>

namespace kevra {

/// The text after the last separator.
[[nodiscard]] std::string_view fileName(std::string_view path);
/// The text before the last separator; a root keeps its separator. Empty without one.
[[nodiscard]] std::string_view parentFolder(std::string_view path);
/// The text after the last dot of the file name, as written; empty without a dot.
[[nodiscard]] std::string_view extension(std::string_view path);
/// `text` with a to z in upper case.
[[nodiscard]] std::string upperAscii(std::string_view text);
/// A relative path resolved against the current folder; any other path unchanged.
[[nodiscard]] std::string absolutePath(const std::string &path);
/// `folder` without one trailing separator; a lone separator is kept.
[[nodiscard]] std::string_view withoutTrailingSeparator(std::string_view folder);

} // namespace kevra
