// SPDX-License-Identifier: GPL-3.0-or-later
// Parses text into a syntax tree, with findings for what the script host would not compile.
#pragma once

#include "script/tree.h"

#include <span>

namespace kevra::script {

enum class PieceKind : std::uint8_t {
    Statements,
    Output, ///< an expression: <%= %>
};

/// A range of the text that is script. No statement extends past its end.
struct Piece {
    TextRange range;
    PieceKind kind = PieceKind::Statements;
    /// Compiled separately from the piece before: no block extends across. Names are shared nevertheless.
    bool startsUnit = false;
    /// In a page: <!-- and --> are comments.
    bool inPage = false;
    /// An event handler is compiled as a procedure body: Exit Sub and Exit Function leave it.
    bool handlesEvent = false;
};

/// The whole text as one script.
[[nodiscard]] ParsedScript parse(std::string_view text);

/// The pieces, in ascending order, as one script; every position is one of `text`.
[[nodiscard]] ParsedScript parse(std::string_view text, std::span<const Piece> pieces);

} // namespace kevra::script
