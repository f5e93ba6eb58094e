// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of a file to UTF-8 and back, one character set at a time. Every conversion that succeeds can be
// undone to the same bytes.
#pragma once

#include "encoding/text_format.h"

#include <optional>
#include <string>
#include <string_view>

namespace kevra {

inline constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
inline constexpr std::string_view utf16LeMark = "\xFF\xFE";
inline constexpr std::string_view utf16BeMark = "\xFE\xFF";

/// The mark of an encoding; empty for the single-byte sets.
[[nodiscard]] std::string_view markOf(Encoding encoding);
[[nodiscard]] bool isAscii(std::string_view bytes);
[[nodiscard]] bool isUtf8(std::string_view bytes);
/// Whether every byte, or pair of bytes, means a character in this set.
[[nodiscard]] bool isValid(std::string_view bytes, Encoding encoding);
/// `bytes`, without mark and valid in `encoding`, as UTF-8.
[[nodiscard]] std::string toUtf8(std::string_view bytes, Encoding encoding);
/// Nothing when the set cannot hold the text. No mark is added.
[[nodiscard]] std::optional<std::string> fromUtf8(std::string_view text, Encoding encoding);

} // namespace kevra
