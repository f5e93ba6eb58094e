// SPDX-License-Identifier: GPL-3.0-or-later
// Converts the bytes of a file to UTF-8 and back. Bytes that are invalid in their set become characters of
// the private use area, U+F700 to U+F7FF, one for each byte value, and are written back unchanged.
#pragma once

#include "encoding/character_sets.h"
#include "text/utf8.h"

#include <optional>
#include <string>
#include <string_view>

namespace kevra {

struct ConvertedText {
    std::string text; ///< UTF-8
    bool rawBytes = false; ///< some bytes were invalid and became U+F700 to U+F7FF
};

enum class RawBytes { None, Escaped };

/// The byte-order mark of an encoding; empty for those that are not Unicode.
[[nodiscard]] std::string_view markOf(Encoding encoding);
/// Whether all bytes are valid in this set and the system supports the set.
[[nodiscard]] bool isValid(std::string_view bytes, Encoding encoding);
/// `bytes` come without byte-order mark.
[[nodiscard]] ConvertedText toUtf8(std::string_view bytes, Encoding encoding);
/// Nothing if the set cannot represent the text exactly. No byte-order mark is added.
[[nodiscard]] std::optional<std::string> fromUtf8(
    std::string_view text, Encoding encoding, RawBytes rawBytes = RawBytes::None);
/// The first character of `text` that the set cannot represent; empty if it can represent all of them.
[[nodiscard]] std::string_view firstMisfit(std::string_view text, Encoding encoding, RawBytes rawBytes);

} // namespace kevra
