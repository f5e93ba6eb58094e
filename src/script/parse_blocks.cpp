// SPDX-License-Identifier: GPL-3.0-or-later
// Blocks: If, Select, the loops and With.
#include "script/nesting.h"
#include "script/parser_state.h"

namespace kevra::script {

NodeId Parser::ifStatement()
{
    const auto start = m_token.start;
    advance();
    const auto condition = expression();
    const bool reported = m_failed;
    const bool then = thenKeyword();
    const auto head = from(start);
    if (!then && (reported || atStatementEnd()))
        skipToLineEnd();
    m_failed = m_stopped;
    // Then, a colon and a line break open a block too.
    while (at(TokenKind::Colon) && (peek().kind == TokenKind::Colon || peek().kind == TokenKind::NewLine))
        advance();
    if (!atLineEnd())
        return inlineIf(start, condition);
    open(BlockKind::If, head);
    ChildList branches;
    m_build.append(branches, ifBranch(start, condition));
    while (at(Keyword::ElseIf)) {
        const auto branchStart = m_token.start;
        advance();
        const auto other = expression();
        if (!thenKeyword())
            recover();
        m_build.append(branches, ifBranch(branchStart, other));
    }
    if (at(Keyword::Else)) {
        const auto branchStart = m_token.start;
        m_open.back().elseRange = tokenRange();
        advance();
        ChildList children;
        m_build.append(children, block(BlockKind::If));
        m_build.append(branches, built(NodeKind::ElseBranch, from(branchStart), children));
    }
    takeBlockEnd(BlockKind::If);
    return built(NodeKind::If, from(start), branches);
}

/// False, after reporting it, if Then is missing.
bool Parser::thenKeyword()
{
    if (at(TokenKind::RightParenthesis))
        failUnexpected("Then");
    if (m_failed) {
        // What follows Then decides whether this is a block If.
        while (!atLineEnd() && !at(Keyword::Then))
            advance();
        m_failed = m_stopped;
    }
    if (take(Keyword::Then))
        return true;
    if (at(TokenKind::Invalid)) {
        failInvalid();
        skipToLineEnd();
    }
    const auto place = m_lastEnd;
    auto *finding = report(Rule::MissingThen, hereRange(), "Then is missing before " + tokenName() + ".");
    replaceFix(finding, {place, place}, " Then", "Insert Then");
    m_quiet = true;
    return false;
}

NodeId Parser::ifBranch(Offset start, NodeId condition)
{
    ChildList children;
    m_build.append(children, condition);
    m_build.append(children, block(BlockKind::If));
    return built(NodeKind::IfBranch, from(start), children);
}

/// If a Then b: c Else d, which ends with its line or with End If.
NodeId Parser::inlineIf(Offset start, NodeId condition)
{
    open(BlockKind::InlineIf, from(start));
    ChildList branches;
    auto branchStart = start;
    for (;;) {
        ChildList children;
        m_build.append(children, condition);
        m_build.append(children, inlineStatements());
        m_build.append(branches, built(NodeKind::IfBranch, from(branchStart), children));
        branchStart = m_token.start;
        if (m_failed || !take(Keyword::ElseIf))
            break;
        condition = expression();
        if (!m_failed)
            thenKeyword();
    }
    if (take(Keyword::Else)) {
        ChildList children;
        m_build.append(children, inlineStatements());
        m_build.append(branches, built(NodeKind::ElseBranch, from(branchStart), children));
    }
    if (!m_failed && at(Keyword::End) && peekIs(Keyword::If)) {
        advance();
        advance();
    }
    close();
    m_lastInlineIf = from(start);
    const auto id = built(NodeKind::If, from(start), branches);
    m_build[id].flags = flag::SingleLine;
    return id;
}

NodeId Parser::inlineStatements()
{
    ChildList list;
    const auto start = m_lastEnd;
    while (!m_failed) {
        while (take(TokenKind::Colon)) { }
        if (atLineEnd() || at(Keyword::Else) || at(Keyword::ElseIf) || (at(Keyword::End) && endedBlock()))
            break;
        if (endedBlock()) {
            // Next or Loop of an outer block also ends the single-line If.
            break;
        }
        m_build.append(list, statement());
        expectStatementEnd();
        if (!at(TokenKind::Colon))
            break;
    }
    const auto first = list.first == 0 ? start : static_cast<Offset>(m_build[list.first].start);
    return built(NodeKind::Block, from(first), list);
}

NodeId Parser::selectStatement()
{
    const auto start = m_token.start;
    advance();
    if (!take(Keyword::Case))
        failHere(Rule::SyntaxError, "Case is expected after Select.");
    ChildList children;
    m_build.append(children, expression());
    const auto head = from(start);
    open(BlockKind::Select, head);
    if (!at(Keyword::Case))
        expectHeadEnd();
    for (auto last = NodeKind::Select;;) {
        ChildList stray;
        statementsInto(stray, false);
        if (stray.first != 0 && last == NodeKind::Select)
            report(Rule::SyntaxError, m_build[stray.first].range(),
                "Between Select Case and the first Case stands no statement.");
        if (!blockEnds(BlockKind::Select))
            continue;
        if (!at(Keyword::Case))
            break;
        if (last == NodeKind::CaseElse)
            report(Rule::UnmatchedBlockEnd, tokenRange(), "No Case can follow the Case Else.");
        m_build.append(children, caseBranch());
        last = m_build[children.last].kind;
    }
    takeBlockEnd(BlockKind::Select);
    return built(NodeKind::Select, from(start), children);
}

NodeId Parser::caseBranch()
{
    const auto start = m_token.start;
    advance();
    ChildList children;
    const bool isElse = take(Keyword::Else);
    if (!isElse)
        caseValues(children);
    recover();
    m_build.append(children, block(BlockKind::Select));
    return built(isElse ? NodeKind::CaseElse : NodeKind::CaseBranch, from(start), children);
}

NodeId Parser::caseValues(ChildList &children)
{
    do {
        if (at(Keyword::Is)) {
            fail(Rule::CaseRange, tokenRange(), "A Case cannot compare with Is.");
            break;
        }
        const auto start = m_token.start;
        m_build.append(children, expression());
        if (!m_failed && at(Keyword::To))
            fail(Rule::CaseRange, {start, m_token.end}, "A Case cannot give a range with To.");
    } while (take(TokenKind::Comma));
    return children.first;
}

NodeId Parser::loopVariable()
{
    const auto start = m_token.start;
    if (!atName())
        return failUnexpected("The variable of the loop");
    const auto id = m_build.leaf(NodeKind::Name, tokenRange(), m_token.name);
    advance();
    typeSuffix();
    if (at(TokenKind::Dot) || at(TokenKind::LeftParenthesis)) {
        suffixes(id, start, false);
        fail(Rule::LoopVariable, from(start), "The variable of a loop is a plain name.");
    }
    typeDeclaration();
    return id;
}

NodeId Parser::forStatement()
{
    const auto start = m_token.start;
    advance();
    if (take(Keyword::Each))
        return forEach(start);
    ChildList children;
    m_build.append(children, loopVariable());
    if (!m_failed && !take(TokenKind::Equal))
        failHere(Rule::SyntaxError, "An equals sign is expected before " + tokenName() + ".");
    m_build.append(children, m_failed ? omitted() : expression());
    if (!m_failed && !take(Keyword::To))
        failHere(Rule::SyntaxError, "To is expected before " + tokenName() + ".");
    m_build.append(children, m_failed ? omitted() : expression());
    m_build.append(children, take(Keyword::Step) ? expression() : omitted());
    open(BlockKind::For, from(start));
    expectHeadEnd();
    m_build.append(children, block(BlockKind::For));
    takeBlockEnd(BlockKind::For);
    return built(NodeKind::For, from(start), children);
}

NodeId Parser::forEach(Offset start)
{
    ChildList children;
    m_build.append(children, loopVariable());
    if (!m_failed && !take(Keyword::In))
        failHere(Rule::SyntaxError, "In is expected before " + tokenName() + ".");
    m_build.append(children, m_failed ? omitted() : expression());
    open(BlockKind::For, from(start));
    expectHeadEnd();
    m_build.append(children, block(BlockKind::For));
    takeBlockEnd(BlockKind::For);
    return built(NodeKind::ForEach, from(start), children);
}

NodeId Parser::doStatement()
{
    const auto start = m_token.start;
    advance();
    ChildList children;
    unsigned flags = at(Keyword::Until) ? flag::Until : 0;
    const bool first = take(Keyword::While) || take(Keyword::Until);
    const auto condition = first ? expression() : 0;
    open(BlockKind::Do, from(start));
    expectHeadEnd();
    const auto body = block(BlockKind::Do);
    const bool looped = at(Keyword::Loop);
    takeBlockEnd(BlockKind::Do);
    auto last = condition;
    if (looped && !first && (at(Keyword::While) || at(Keyword::Until))) {
        flags = flag::AtEnd | (at(Keyword::Until) ? flag::Until : 0);
        advance();
        last = expression();
    }
    m_build.append(children, last != 0 ? last : omitted());
    m_build.append(children, body);
    const auto id = built(NodeKind::DoLoop, from(start), children);
    m_build[id].flags = flags & 0x3F;
    return id;
}

NodeId Parser::whileStatement()
{
    const auto start = m_token.start;
    advance();
    ChildList children;
    m_build.append(children, expression());
    open(BlockKind::While, from(start));
    expectHeadEnd();
    m_build.append(children, block(BlockKind::While));
    takeBlockEnd(BlockKind::While);
    return built(NodeKind::While, from(start), children);
}

NodeId Parser::withStatement()
{
    const auto start = m_token.start;
    advance();
    ChildList children;
    m_build.append(children, expression());
    open(BlockKind::With, from(start));
    expectHeadEnd();
    m_build.append(children, block(BlockKind::With));
    takeBlockEnd(BlockKind::With);
    return built(NodeKind::With, from(start), children);
}

} // namespace kevra::script
