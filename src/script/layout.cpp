// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/layout.h"

#include "script/characters.h"

#include <algorithm>
#include <array>

namespace kevra::script {
namespace {

/// Blocks that end with End and their own keyword and have no branches.
[[nodiscard]] bool isDeclaration(Keyword kind)
{
    return kind == Keyword::Sub || kind == Keyword::Function || kind == Keyword::Property
        || kind == Keyword::Class;
}

[[nodiscard]] bool opensByItself(Keyword word)
{
    return isDeclaration(word) || word == Keyword::For || word == Keyword::Do || word == Keyword::While
        || word == Keyword::With || word == Keyword::Select;
}

[[nodiscard]] bool isPrefix(Keyword word)
{
    return word == Keyword::Public || word == Keyword::Private || word == Keyword::Default;
}

struct Closer {
    Keyword word;
    Keyword kind;
};
constexpr std::array closers{
    Closer{Keyword::Next, Keyword::For},
    Closer{Keyword::Loop, Keyword::Do},
    Closer{Keyword::WEnd, Keyword::While},
};

[[nodiscard]] Keyword wordAt(std::span<const Token> words, std::size_t i)
{
    return i < words.size() && words[i].kind == TokenKind::Name ? words[i].keyword() : Keyword::None;
}

/// The kind of block that a statement ends; None for others.
[[nodiscard]] Keyword endedBy(std::span<const Token> words)
{
    const auto first = wordAt(words, 0);
    if (first == Keyword::End)
        return wordAt(words, 1);
    const auto closer = std::ranges::find(closers, first, &Closer::word);
    return closer != closers.end() ? closer->kind : Keyword::None;
}

[[nodiscard]] bool endsLine(TokenKind kind)
{
    return kind == TokenKind::NewLine || kind == TokenKind::UnitEnd || kind == TokenKind::OutputStart
        || kind == TokenKind::End;
}

struct Pair {
    Keyword word;
    Keyword after;
};
/// Keywords that can be names elsewhere.
constexpr std::array pairs{
    Pair{Keyword::Explicit, Keyword::Option},
    Pair{Keyword::Preserve, Keyword::ReDim},
    Pair{Keyword::Error, Keyword::On},
    Pair{Keyword::Get, Keyword::Property},
    Pair{Keyword::Property, Keyword::End},
    Pair{Keyword::Property, Keyword::Exit},
    Pair{Keyword::Property, Keyword::Public},
    Pair{Keyword::Property, Keyword::Private},
    Pair{Keyword::Property, Keyword::Default},
    Pair{Keyword::Default, Keyword::Public},
};

} // namespace

bool isKeywordHere(std::span<const Token> tokens, std::size_t i)
{
    const auto word = wordAt(tokens, i);
    if (word == Keyword::None || word >= Keyword::AddressOf)
        return false;
    const auto before = i > 0 ? wordAt(tokens, i - 1) : Keyword::None;
    return isReserved(word) || std::ranges::any_of(pairs, [&](const Pair &pair) {
        return pair.word == word && pair.after == before;
    });
}

Layout::Layout(std::string_view text, std::span<const Piece> pieces)
    : m_text(text)
    , m_index(text)
    , m_lines(static_cast<std::size_t>(m_index.lineCount()))
{
    markScriptLines(pieces);
    Lexer lexer(text, pieces, m_names, m_comments);
    std::size_t lineStart = 0;
    for (;;) {
        const auto token = lexer.next();
        if (endsLine(token.kind)) {
            if (lineStart < m_tokens.size())
                logicalLine(std::span(m_tokens).subspan(lineStart));
            if (token.kind == TokenKind::UnitEnd)
                m_open.clear();
        }
        if (token.kind == TokenKind::End)
            break;
        m_tokens.push_back(token);
        lineStart = endsLine(token.kind) ? m_tokens.size() : lineStart;
    }
    setDepth(m_lines.size(), 0);
}

TextRange Layout::lineRange(std::size_t line) const
{
    const auto start = m_index.lineStart(static_cast<Offset>(line) + 1);
    auto end = line + 1 < m_lines.size() ? m_index.lineStart(static_cast<Offset>(line) + 2)
                                         : static_cast<Offset>(m_text.size());
    while (end > start
        && is(static_cast<unsigned char>(m_text[static_cast<std::size_t>(end) - 1]), byte_class::LineBreak))
        --end;
    return {start, end};
}

void Layout::markScriptLines(std::span<const Piece> pieces)
{
    for (const auto &piece : pieces) {
        auto line = lineOf(piece.range.start);
        for (; line < m_lines.size() && lineRange(line).start < piece.range.end; ++line)
            m_lines[line].isScript = lineRange(line).start >= piece.range.start;
    }
}

/// Sets the depth of the lines up to this one, which has tokens. Those before it are empty and get the depth
/// of what follows the last statement.
void Layout::setDepth(std::size_t line, unsigned depthOfLine)
{
    for (; m_nextLine < std::min(line, m_lines.size()); ++m_nextLine)
        m_lines[m_nextLine].depth = depth();
    if (line < m_lines.size() && m_nextLine == line)
        m_lines[m_nextLine++].depth = depthOfLine;
}

unsigned Layout::depth() const
{
    unsigned depth = 0;
    for (const auto &block : m_open)
        depth += block.inCase ? 2 : 1;
    return depth;
}

void Layout::logicalLine(std::span<const Token> line)
{
    const auto first = lineOf(line.front().start);
    const auto last = lineOf(line.back().start);
    setDepth(first, depth());
    m_inlineIfs = 0;
    for (std::size_t start = 0, i = 0; i <= line.size(); ++i) {
        if (i < line.size() && line[i].kind != TokenKind::Colon)
            continue;
        if (i > start)
            statement(line.subspan(start, i - start), lineOf(line[start].start), start == 0);
        start = i + 1;
    }
    for (auto next = first + 1; next <= last; ++next) {
        m_lines[next].continues = m_lines[next].isScript;
        m_nextLine = next + 1;
    }
}

void Layout::endStatement(Keyword kind, std::size_t line, bool first)
{
    if (kind == Keyword::If && m_inlineIfs > 0) {
        --m_inlineIfs;
        return;
    }
    close(kind, line);
    if (first)
        m_lines[line].depth = depth();
}

void Layout::branch(Keyword word, std::size_t line, bool first)
{
    const bool isBranch = m_inlineIfs == 0 && !m_open.empty()
        && ((m_open.back().kind == Keyword::If && (word == Keyword::Else || word == Keyword::ElseIf))
            || (m_open.back().kind == Keyword::Select && word == Keyword::Case));
    if (!isBranch)
        return;
    const auto inside = m_open.back().inCase ? 2U : 1U;
    if (first)
        m_lines[line].depth = depth() - inside + (word == Keyword::Case ? 1 : 0);
    m_open.back().inCase = word == Keyword::Case;
}

void Layout::ifStatement(std::span<const Token> words, std::size_t line)
{
    const bool isIf = wordAt(words, 0) == Keyword::If;
    const auto then = std::ranges::find_if(
        words, [](const Token &t) { return t.kind == TokenKind::Name && t.keyword() == Keyword::Then; });
    const bool inlined = then != words.end() && then + 1 != words.end();
    if (isIf && !inlined)
        open(Keyword::If, line);
    else if (isIf)
        ++m_inlineIfs;
    if (inlined)
        statement({then + 1, words.end()}, line, false);
}

void Layout::statement(std::span<const Token> words, std::size_t line, bool first)
{
    auto word = wordAt(words, 0);
    if (const auto kind = endedBy(words); kind != Keyword::None)
        return endStatement(kind, line, first);
    branch(word, line, first);
    if (word == Keyword::Else && words.size() > 1)
        return statement(words.subspan(1), line, false);
    if (word == Keyword::If || word == Keyword::ElseIf)
        return ifStatement(words, line);
    while (isPrefix(word) && words.size() > 1) {
        words = words.subspan(1);
        word = wordAt(words, 0);
    }
    const bool property = word != Keyword::Property || wordAt(words, 1) == Keyword::Get
        || wordAt(words, 1) == Keyword::Let || wordAt(words, 1) == Keyword::Set;
    if (opensByItself(word) && property)
        open(word, line);
}

void Layout::close(Keyword kind, std::size_t line)
{
    for (auto at = m_open.size(); at-- > 0;) {
        if (m_open[at].kind == kind) {
            if (m_open[at].line < line)
                m_blocks.push_back({m_open[at].line, line});
            m_open.resize(at);
            return;
        }
        // Blocks left open in a procedure end with it.
        if (isDeclaration(m_open[at].kind) && !isDeclaration(kind))
            return;
    }
}

} // namespace kevra::script
