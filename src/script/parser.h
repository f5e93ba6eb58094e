// SPDX-License-Identifier: GPL-3.0-or-later
// Text to syntax tree, with findings for what the script host would refuse to compile.
#pragma once

#include "script/tree.h"

#include <span>

namespace kevra::script {

enum class PieceKind : std::uint8_t {
    Statements,
    Output, ///< an expression: <%= %>
};

/// A stretch of the text that is script. Statements end where it ends.
struct Piece {
    TextRange range;
    PieceKind kind = PieceKind::Statements;
    /// Compiled apart from the piece before: no block reaches over from there. Names are shared all the same.
    bool startsUnit = false;
    /// In a page: <!-- and --> are comments.
    bool inPage = false;
    /// What handles an event is the body of a procedure: it can be left with Exit Sub and Exit Function.
    bool handlesEvent = false;
};

/// The whole text as one script.
[[nodiscard]] ParsedScript parse(std::string_view text);

/// The pieces, in ascending order, as one script; every position is one of `text`.
[[nodiscard]] ParsedScript parse(std::string_view text, std::span<const Piece> pieces);

} // namespace kevra::script
