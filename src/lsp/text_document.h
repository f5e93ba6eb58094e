// SPDX-License-Identifier: GPL-3.0-or-later
// A text as the client sees it: positions are lines and characters, counted in what was agreed on.
#pragma once

#include "text/types.h"

#include <string>
#include <string_view>
#include <vector>

namespace kevra::lsp {

/// What a position's `character` counts.
enum class PositionUnit { Utf8, Utf16, Utf32 };

/// Both from 0. CR, LF and CRLF each end a line.
struct Position {
    Offset line = 0;
    Offset character = 0;

    friend bool operator==(Position, Position) = default;
};

class TextDocument {
public:
    /// `text` is valid UTF-8.
    TextDocument(std::string text, PositionUnit unit);

    [[nodiscard]] const std::string &text() const { return m_text; }
    /// A place beyond its line is the line's end, one in the middle of a character the character's start.
    [[nodiscard]] Offset offsetAt(Position position) const;
    [[nodiscard]] Position positionAt(Offset offset) const;
    void replace(TextRange range, std::string_view text);
    void replaceAll(std::string text);

private:
    [[nodiscard]] Offset lineEnd(std::size_t line) const;
    [[nodiscard]] Offset units(Offset from, Offset to) const;
    [[nodiscard]] bool startsLine(Offset offset) const;
    void appendStarts(std::vector<Offset> &starts, TextRange range) const;

    /// Of the last place asked for, so that many on one long line are found in one pass.
    struct Known {
        std::size_t line = 0;
        Offset offset = 0;
        Offset character = 0;
    };

    std::string m_text;
    PositionUnit m_unit;
    bool m_ascii = true;
    std::vector<Offset> m_starts; ///< of the lines
    mutable Known m_known;
};

} // namespace kevra::lsp
