// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/parser_state.h"

#include <limits>

namespace kevra::script {

namespace {

/// Positions in the tree have 32 bits, and the End token follows the text.
constexpr std::size_t largestText = std::numeric_limits<std::int32_t>::max();

} // namespace

ParsedScript parse(std::string_view text)
{
    const Piece whole{{0, static_cast<Offset>(text.size())}};
    return parse(text, {&whole, 1});
}

ParsedScript parse(std::string_view text, std::span<const Piece> pieces)
{
    ParsedScript script;
    script.text = text;
    if (text.size() > largestText) {
        script.complete = false;
        pieces = {};
    }
    Parser(script, pieces).run();
    return script;
}

Parser::Parser(ParsedScript &script, std::span<const Piece> pieces)
    : m_script(script)
    , m_build(script.tree)
    , m_lexer(script.text, pieces, script.names, script.comments)
{
    Offset length = 0;
    for (const auto &piece : pieces) {
        length += piece.range.length();
        if (piece.startsUnit)
            script.unitStarts.push_back(piece.range.start);
        if (piece.startsUnit || m_unitHandlesEvent.empty())
            m_unitHandlesEvent.push_back(piece.handlesEvent);
    }
    m_build.reserve(static_cast<std::size_t>(length) / 4 + 16);
    m_token = m_lexer.next();
    if (m_token.unclosed)
        reportUnclosed(m_token);
}

void Parser::run()
{
    ChildList list;
    for (;;) {
        statementsInto(list, false);
        if (at(TokenKind::End))
            break;
        if (at(TokenKind::UnitEnd)) {
            m_statementSeen = false;
            ++m_unit;
            advance();
            continue;
        }
        strayEnd(*endedBlock());
    }
    const auto length = static_cast<Offset>(m_script.text.size());
    m_build.setRoot(built(NodeKind::Script, {0, length}, list));
    std::ranges::stable_sort(
        m_script.findings, {}, [](const Finding &finding) { return finding.range.start; });
}

void Parser::advance()
{
    m_lastEnd = m_token.end;
    if (m_stopped)
        return;
    m_statementStart = at(TokenKind::Colon) || atLineEnd();
    if (at(TokenKind::NewLine) || at(TokenKind::UnitEnd))
        m_quiet = false;
    if (m_peeked) {
        m_token = *m_peeked;
        m_peeked.reset();
    } else {
        m_token = m_lexer.next();
    }
    if (m_token.unclosed)
        reportUnclosed(m_token);
}

const Token &Parser::peek()
{
    if (!m_peeked)
        m_peeked = m_lexer.next();
    return *m_peeked;
}

bool Parser::peekIs(Keyword keyword)
{
    return peek().kind == TokenKind::Name && peek().keyword() == keyword;
}

bool Parser::atLineEnd() const
{
    return at(TokenKind::NewLine) || at(TokenKind::OutputStart) || atTextEnd();
}

bool Parser::take(TokenKind kind)
{
    const bool found = !m_failed && at(kind);
    if (found)
        advance();
    return found;
}

bool Parser::take(Keyword keyword)
{
    const bool found = !m_failed && at(keyword);
    if (found)
        advance();
    return found;
}

bool Parser::spaceBefore() const
{
    return m_token.start > static_cast<std::uint32_t>(m_lastEnd);
}

NodeId Parser::built(NodeKind kind, TextRange range, const ChildList &children, NameId name)
{
    if (TreeBuilder::tooDeep(children)) {
        stopHere();
        return m_build.leaf(NodeKind::Wrong, range);
    }
    return m_build.node(kind, range, children, name);
}

/// Counts the recursion depth and stops the parse before the stack overflows.
void Parser::stopHere()
{
    if (m_stopped)
        return;
    report(Rule::NestingTooDeep, tokenRange(),
        "Nested too deep " + inLine(m_token.start) + ": the analysis stops here.");
    m_stopped = true;
    m_failed = true;
    m_script.complete = false;
    m_peeked.reset();
    m_token = Token{TokenKind::End, true, false, m_token.start, m_token.start, NameId::None};
}

} // namespace kevra::script
