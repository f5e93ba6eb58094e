// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of a file to UTF-8 and back, one character set at a time. Bytes that mean nothing in their set become
// characters of the private area, U+F700 to U+F7FF, one for each byte value, and go back as they were.
#pragma once

#include "encoding/character_sets.h"
#include "encoding/utf8.h"

#include <optional>
#include <string>
#include <string_view>

namespace kevra {

struct ConvertedText {
    std::string text; ///< UTF-8
    bool rawBytes = false; ///< some bytes mean nothing in the set; U+F700 to U+F7FF stand for them
};

enum class RawBytes { None, Escaped };

/// The byte-order mark of an encoding; empty for those that are not Unicode.
[[nodiscard]] std::string_view markOf(Encoding encoding);
/// Whether every byte means a character in this set, and the system knows the set.
[[nodiscard]] bool isValid(std::string_view bytes, Encoding encoding);
/// `bytes` are without mark.
[[nodiscard]] ConvertedText toUtf8(std::string_view bytes, Encoding encoding);
/// Nothing when the set cannot hold the text so that it reads back the same. No mark is added.
[[nodiscard]] std::optional<std::string> fromUtf8(
    std::string_view text, Encoding encoding, RawBytes rawBytes = RawBytes::None);
/// The first character of `text` that the set cannot hold; empty when it holds them all.
[[nodiscard]] std::string_view firstMisfit(std::string_view text, Encoding encoding, RawBytes rawBytes);

} // namespace kevra
