// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/lexer.h"

#include "script/characters.h"

#include <algorithm>
#include <array>

namespace kevra::script {

namespace {

/// What can end an operand: an ampersand after it is the operator, not the start of &17.
bool endsOperand(TokenKind kind)
{
    switch (kind) {
    case TokenKind::Name:
    case TokenKind::Number:
    case TokenKind::String:
    case TokenKind::Date:
    case TokenKind::RightParenthesis:
        return true;
    default:
        return false;
    }
}

constexpr std::uint32_t longestDate = 100;

struct Pair {
    std::string_view signs;
    TokenKind kind;
};
constexpr std::array pairs{
    Pair{"<>", TokenKind::NotEqual},
    Pair{"<=", TokenKind::LessEqual},
    Pair{">=", TokenKind::GreaterEqual},
    Pair{"><", TokenKind::NotEqual},
    Pair{"=<", TokenKind::LessEqual},
    Pair{"=>", TokenKind::GreaterEqual},
};

struct Single {
    unsigned char sign;
    TokenKind kind;
};
constexpr std::array singleSigns{
    Single{':', TokenKind::Colon},
    Single{'(', TokenKind::LeftParenthesis},
    Single{')', TokenKind::RightParenthesis},
    Single{',', TokenKind::Comma},
    Single{'.', TokenKind::Dot},
    Single{'=', TokenKind::Equal},
    Single{'<', TokenKind::Less},
    Single{'>', TokenKind::Greater},
    Single{'+', TokenKind::Plus},
    Single{'-', TokenKind::Minus},
    Single{'*', TokenKind::Multiply},
    Single{'/', TokenKind::Divide},
    Single{'\\', TokenKind::IntegerDivide},
    Single{'^', TokenKind::Power},
};
constexpr auto singles = [] {
    std::array<TokenKind, 256> kinds{};
    kinds.fill(TokenKind::Invalid);
    for (const auto &single : singleSigns)
        kinds[single.sign] = single.kind;
    return kinds;
}();

} // namespace

Lexer::Lexer(
    std::string_view text, std::span<const Piece> pieces, NameTable &names, std::vector<TextRange> &comments)
    : m_text(text)
    , m_pieces(pieces)
    , m_names(names)
    , m_comments(comments)
{
    if (m_pieces.empty())
        return;
    m_at = static_cast<std::uint32_t>(m_pieces[0].range.start);
    m_end = static_cast<std::uint32_t>(m_pieces[0].range.end);
    m_outputDue = m_pieces[0].kind == PieceKind::Output;
}

Token Lexer::made(TokenKind kind, std::uint32_t length)
{
    Token token;
    token.kind = kind;
    token.start = m_at;
    token.end = m_at += length;
    return token;
}

Token Lexer::next()
{
    if (m_outputDue) {
        m_outputDue = false;
        return made(TokenKind::OutputStart, 0);
    }
    do
        skipBlanks();
    while (skipComment());
    Token token;
    const auto byte = at(m_at);
    if (m_at >= m_end || byte == 0 || byte == 0x1A)
        token = nextPiece();
    else if (is(byte, byte_class::LineBreak))
        token = newLine();
    else if (is(byte, byte_class::Digit) || (byte == '.' && is(at(m_at + 1), byte_class::Digit)))
        token = number();
    else if (is(byte, byte_class::Name))
        token = word();
    else
        token = operatorOrInvalid();
    if (token.kind == TokenKind::Name && token.keyword() == Keyword::Rem) {
        m_at = token.start;
        m_comments.push_back({m_at, m_at});
        skipToLineEnd();
        m_comments.back().end = m_at;
        return next();
    }
    m_lineStart = token.kind == TokenKind::NewLine;
    m_previous = token.kind;
    return token;
}

void Lexer::skipBlanks()
{
    for (;;) {
        while (is(at(m_at), byte_class::Blank))
            ++m_at;
        if (at(m_at) == '_' && continuesLine())
            continue;
        if (at(m_at) != 0xEF || !m_text.substr(m_at).starts_with(byteOrderMark))
            return;
        m_at += 3;
    }
}

/// Skips an underscore that ends its line, and the line break.
bool Lexer::continuesLine()
{
    auto after = m_at + 1;
    while (is(at(after), byte_class::Blank))
        ++after;
    if (after < m_end && !is(at(after), byte_class::LineBreak))
        return false;
    if (after < m_end)
        after += at(after) == '\r' && at(after + 1) == '\n' ? 2 : 1;
    m_at = after;
    return true;
}

bool Lexer::skipComment()
{
    if (at(m_at) != '\'' && !(m_lineStart && atPageComment()))
        return false;
    const auto start = m_at;
    skipToLineEnd();
    m_comments.push_back({start, m_at});
    return true;
}

/// <!-- and --> hide the script from browsers that do not support it.
bool Lexer::atPageComment() const
{
    if (m_piece >= m_pieces.size() || !m_pieces[m_piece].inPage)
        return false;
    const auto rest = m_text.substr(m_at, m_end - m_at);
    return rest.starts_with("<!--") || rest.starts_with("-->");
}

void Lexer::skipToLineEnd()
{
    const auto *byte = m_text.data() + m_at;
    const auto *end = m_text.data() + m_end;
    while (byte < end && *byte != '\n' && *byte != '\r')
        ++byte;
    m_at = static_cast<std::uint32_t>(byte - m_text.data());
}

Token Lexer::nextPiece()
{
    m_at = m_end;
    auto token = made(TokenKind::End, 0);
    if (m_piece + 1 >= m_pieces.size())
        return token;
    const auto &piece = m_pieces[++m_piece];
    token.kind = piece.startsUnit ? TokenKind::UnitEnd : TokenKind::NewLine;
    m_at = static_cast<std::uint32_t>(piece.range.start);
    m_end = static_cast<std::uint32_t>(piece.range.end);
    m_outputDue = piece.kind == PieceKind::Output;
    return token;
}

Token Lexer::newLine()
{
    return made(TokenKind::NewLine, at(m_at) == '\r' && at(m_at + 1) == '\n' ? 2 : 1);
}

Token Lexer::word()
{
    if (at(m_at) == '_')
        return made(TokenKind::Invalid, 1);
    auto end = m_at;
    while (is(at(end), byte_class::Name)) {
        if (at(end) >= 0x80 && lookalikeLength(m_text.substr(end, m_end - end)) != 0)
            break;
        ++end;
    }
    if (end == m_at)
        return made(TokenKind::Invalid, lookalikeLength(m_text.substr(end, m_end - end)));
    auto token = made(TokenKind::Name, end - m_at);
    token.name = m_names.intern(m_text.substr(token.start, end - token.start));
    token.plain = m_previous != TokenKind::Dot;
    return token;
}

Token Lexer::bracketedWord()
{
    auto end = m_at + 1;
    while (end < m_end && at(end) != ']' && !is(at(end), byte_class::LineBreak))
        ++end;
    const bool closed = at(end) == ']';
    auto token = made(TokenKind::Name, end - m_at + (closed ? 1 : 0));
    token.name = m_names.intern(m_text.substr(token.start + 1, end - token.start - 1));
    token.plain = false;
    token.unclosed = !closed;
    return token;
}

Token Lexer::number()
{
    auto end = m_at;
    const auto digits = [&] {
        while (is(at(end), byte_class::Digit))
            ++end;
    };
    digits();
    if (at(end) == '.') {
        ++end;
        digits();
    }
    if ((at(end) | 0x20) == 'e') {
        const auto sign = at(end + 1) == '+' || at(end + 1) == '-' ? 1U : 0U;
        if (is(at(end + 1 + sign), byte_class::Digit)) {
            end += 1 + sign;
            digits();
        }
    }
    return made(TokenKind::Number, end - m_at);
}

/// &HFF, &HFF&, &O17 and &17. In "a" &Hello and a &17 the ampersand is the operator.
bool Lexer::prefixedNumber(Token &token)
{
    const auto letter = at(m_at + 1) | 0x20;
    const bool operand = endsOperand(m_previous);
    auto end = m_at + (letter == 'h' || letter == 'o' ? 2 : 1);
    const auto first = end;
    while (is(at(end), letter == 'h' ? byte_class::HexDigit : byte_class::Digit))
        ++end;
    const bool bare = first == m_at + 1;
    if (is(at(end), byte_class::Name) || (end == first && (operand || bare)) || (bare && operand))
        return false;
    const auto after = at(end + 1);
    if (at(end) == '&' && !is(after, byte_class::Name) && after != '"' && after != '(' && after != '[')
        ++end;
    token = made(TokenKind::Number, end - m_at);
    return true;
}

Token Lexer::string()
{
    auto end = m_at + 1;
    while (end < m_end && !is(at(end), byte_class::LineBreak)) {
        if (at(end++) != '"')
            continue;
        if (at(end) != '"')
            return made(TokenKind::String, end - m_at);
        ++end;
    }
    auto token = made(TokenKind::String, end - m_at);
    token.unclosed = true;
    return token;
}

Token Lexer::date()
{
    const bool suffix = m_at > 0 && endsOperand(m_previous) && is(at(m_at - 1), byte_class::Name);
    for (auto end = m_at + 1; !suffix && end - m_at < longestDate && end < m_end; ++end) {
        if (is(at(end), byte_class::LineBreak))
            break;
        if (at(end) == '#')
            return made(TokenKind::Date, end + 1 - m_at);
    }
    return made(TokenKind::Invalid, 1);
}

Token Lexer::operatorOrInvalid()
{
    Token token;
    switch (at(m_at)) {
    case '"':
        return string();
    case '#':
        return date();
    case '[':
        return bracketedWord();
    case '&':
        return prefixedNumber(token) ? token : made(TokenKind::Ampersand, 1);
    default:
        break;
    }
    const auto first = singles[at(m_at)];
    if (first != TokenKind::Equal && first != TokenKind::Less && first != TokenKind::Greater)
        return made(first, 1);
    const auto pair
        = std::ranges::find(pairs, m_text.substr(m_at, std::min<std::size_t>(2, m_end - m_at)), &Pair::signs);
    return pair != pairs.end() ? made(pair->kind, 2) : made(first, 1);
}

} // namespace kevra::script
