// SPDX-License-Identifier: GPL-3.0-or-later
// How a text lies in its file: character set, byte-order mark, line ends.
#pragma once

#include "encoding/character_sets.h"

#include <optional>
#include <string>
#include <string_view>

namespace kevra {

/// None is a text without a line break; what is added to it ends in CRLF.
enum class LineEnds { None, CrLf, Lf, Cr, Mixed };

/// What reads the file: it decides whether a declared character set counts, and what the file becomes when
/// its encoding cannot hold a character.
enum class TextKind { Page, Script, Plain };

struct TextFormat {
    Encoding encoding = Encoding::Windows1252;
    bool mark = false;
    LineEnds lineEnds = LineEnds::None;
    std::optional<Encoding> declared; ///< the character set that the text named when it was read
    bool guessed = false; ///< the encoding was neither marked nor declared, nor is it UTF-8
    bool named = false; ///< by the user; a file without a character beyond ASCII keeps it too
    bool rawBytes = false; ///< some bytes mean nothing in the encoding: see charset.h

    friend bool operator==(const TextFormat &, const TextFormat &) = default;
};

/// For people: "UTF-8 with mark", "Windows-1251, guessed".
[[nodiscard]] std::string encodingName(const TextFormat &format);
[[nodiscard]] std::string lineEndsName(LineEnds ends); ///< "CRLF", "LF", "CR", "mixed line ends"

} // namespace kevra
