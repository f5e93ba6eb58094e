// SPDX-License-Identifier: GPL-3.0-or-later
// A text with positions as the client counts them: line and character, in the negotiated unit.
#pragma once

#include "text/types.h"

#include <string>
#include <string_view>
#include <vector>

namespace kevra::lsp {

/// The unit of a position's `character`.
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
    /// A position past its line means the line's end; one inside a character means its start.
    [[nodiscard]] Offset offsetAt(Position position) const;
    [[nodiscard]] Position positionAt(Offset offset) const;
    void replace(TextRange range, std::string_view text);
    void replaceAll(std::string text);

private:
    [[nodiscard]] Offset lineEnd(std::size_t line) const;
    [[nodiscard]] Offset units(Offset from, Offset to) const;
    [[nodiscard]] bool startsLine(Offset offset) const;
    void appendStarts(std::vector<Offset> &starts, TextRange range) const;

    /// The last position converted, so that many on one long line are found in one pass.
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
