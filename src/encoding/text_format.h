// SPDX-License-Identifier: GPL-3.0-or-later
// How a text is stored in its file: character set, byte-order mark, line ends.
#pragma once

#include "encoding/character_sets.h"

#include <optional>
#include <string>
#include <string_view>

namespace kevra {

/// None is a text without a line break; lines added to it end in CRLF.
enum class LineEnds { None, CrLf, Lf, Cr, Mixed };

/// What the file is for. It decides where a character set may be declared, and which encoding the file gets
/// if its own cannot represent a character.
enum class TextKind { Page, Script, Plain };

struct TextFormat {
    Encoding encoding = Encoding::Windows1252;
    bool mark = false;
    LineEnds lineEnds = LineEnds::None;
    std::optional<Encoding> declared; ///< the character set that the text declared when it was read
    bool guessed = false; ///< the encoding was neither marked nor declared, nor is it UTF-8
    bool named = false; ///< chosen by the user; kept even if the file is pure ASCII
    bool rawBytes = false; ///< some bytes are invalid in the encoding: see transcoding.h

    friend bool operator==(const TextFormat &, const TextFormat &) = default;
};

/// For display: "UTF-8 with mark", "Windows-1251, guessed".
[[nodiscard]] std::string encodingName(const TextFormat &format);
[[nodiscard]] std::string lineEndsName(LineEnds ends); ///< "CRLF", "LF", "CR", "mixed line ends"

} // namespace kevra
