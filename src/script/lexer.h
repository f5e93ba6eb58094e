// SPDX-License-Identifier: GPL-3.0-or-later
// Splits text into tokens, one at a time. Blanks, line continuations and comments are skipped.
#pragma once

#include "script/names.h"
#include "script/parser.h"
#include "script/token.h"

#include <span>
#include <string_view>
#include <vector>

namespace kevra::script {

class Lexer {
public:
    /// The arguments must outlive the lexer. Comments are appended to `comments`.
    Lexer(std::string_view text, std::span<const Piece> pieces, NameTable &names,
        std::vector<TextRange> &comments);

    /// After the last token it keeps returning End.
    Token next();

private:
    void skipBlanks();
    bool continuesLine();
    bool skipComment();
    [[nodiscard]] bool atPageComment() const;
    void skipToLineEnd();
    Token nextPiece();
    Token newLine();
    Token word();
    Token bracketedWord();
    Token number();
    bool prefixedNumber(Token &token);
    Token string();
    Token date();
    Token operatorOrInvalid();
    [[nodiscard]] unsigned char at(std::uint32_t offset) const
    {
        return offset < m_end ? static_cast<unsigned char>(m_text[offset]) : 0;
    }
    [[nodiscard]] Token made(TokenKind kind, std::uint32_t length);

    std::string_view m_text;
    std::span<const Piece> m_pieces;
    NameTable &m_names;
    std::vector<TextRange> &m_comments;
    std::size_t m_piece = 0;
    std::uint32_t m_at = 0;
    std::uint32_t m_end = 0;
    bool m_outputDue = false; ///< an OutputStart token comes next
    bool m_lineStart = true;
    TokenKind m_previous = TokenKind::NewLine;
};

} // namespace kevra::script
