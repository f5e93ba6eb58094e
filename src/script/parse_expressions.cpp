// SPDX-License-Identifier: GPL-3.0-or-later
// Expressions, by the strength of their operators: Imp binds weakest, ^ strongest.
#include "script/nesting.h"
#include "script/parser_state.h"

namespace kevra::script {

namespace {

constexpr unsigned notStrength = 6;
constexpr unsigned comparisonStrength = 7;
constexpr unsigned signStrength = 13;
constexpr unsigned powerStrength = 14;

unsigned strength(Operator op)
{
    switch (op) {
    case Operator::None:
        return 0;
    case Operator::Imp:
        return 1;
    case Operator::Eqv:
        return 2;
    case Operator::Xor:
        return 3;
    case Operator::Or:
        return 4;
    case Operator::And:
        return 5;
    case Operator::Not:
        return notStrength;
    case Operator::Equal:
    case Operator::NotEqual:
    case Operator::Less:
    case Operator::Greater:
    case Operator::LessEqual:
    case Operator::GreaterEqual:
    case Operator::Is:
        return comparisonStrength;
    case Operator::Concatenate:
        return 8;
    case Operator::Add:
    case Operator::Subtract:
        return 9;
    case Operator::Mod:
        return 10;
    case Operator::IntegerDivide:
        return 11;
    case Operator::Multiply:
    case Operator::Divide:
        return 12;
    case Operator::Negate:
    case Operator::Plus:
        return signStrength;
    case Operator::Power:
        return powerStrength;
    }
    return 0;
}

Operator wordOperator(Keyword keyword)
{
    switch (keyword) {
    case Keyword::And:
        return Operator::And;
    case Keyword::Or:
        return Operator::Or;
    case Keyword::Xor:
        return Operator::Xor;
    case Keyword::Eqv:
        return Operator::Eqv;
    case Keyword::Imp:
        return Operator::Imp;
    case Keyword::Is:
        return Operator::Is;
    case Keyword::Mod:
        return Operator::Mod;
    default:
        return Operator::None;
    }
}

Operator signOperator(TokenKind kind)
{
    switch (kind) {
    case TokenKind::Equal:
        return Operator::Equal;
    case TokenKind::NotEqual:
        return Operator::NotEqual;
    case TokenKind::Less:
        return Operator::Less;
    case TokenKind::Greater:
        return Operator::Greater;
    case TokenKind::LessEqual:
        return Operator::LessEqual;
    case TokenKind::GreaterEqual:
        return Operator::GreaterEqual;
    case TokenKind::Ampersand:
        return Operator::Concatenate;
    case TokenKind::Plus:
        return Operator::Add;
    case TokenKind::Minus:
        return Operator::Subtract;
    case TokenKind::Multiply:
        return Operator::Multiply;
    case TokenKind::Divide:
        return Operator::Divide;
    case TokenKind::IntegerDivide:
        return Operator::IntegerDivide;
    case TokenKind::Power:
        return Operator::Power;
    default:
        return Operator::None;
    }
}

/// a < > b and a > = b, written apart.
Operator joined(Operator first, TokenKind second)
{
    if (first == Operator::Less && second == TokenKind::Greater)
        return Operator::NotEqual;
    if (first == Operator::Less && second == TokenKind::Equal)
        return Operator::LessEqual;
    if (first == Operator::Greater && second == TokenKind::Equal)
        return Operator::GreaterEqual;
    return Operator::None;
}

std::optional<NodeKind> literalKeyword(Keyword keyword)
{
    switch (keyword) {
    case Keyword::True:
        return NodeKind::True;
    case Keyword::False:
        return NodeKind::False;
    case Keyword::Null:
        return NodeKind::Null;
    case Keyword::Empty:
        return NodeKind::Empty;
    case Keyword::Nothing:
        return NodeKind::Nothing;
    case Keyword::Me:
        return NodeKind::Me;
    default:
        return std::nullopt;
    }
}

} // namespace

Operator Parser::binaryOperator()
{
    return at(TokenKind::Name) ? wordOperator(m_token.keyword()) : signOperator(kind());
}

bool Parser::atExpression() const
{
    switch (kind()) {
    case TokenKind::Name: {
        const auto keyword = m_token.keyword();
        return !isReserved(keyword) || keyword == Keyword::Not || keyword == Keyword::New
            || literalKeyword(keyword);
    }
    case TokenKind::Number:
    case TokenKind::String:
    case TokenKind::Date:
    case TokenKind::LeftParenthesis:
    case TokenKind::Dot:
    case TokenKind::Plus:
    case TokenKind::Minus:
        return true;
    default:
        return false;
    }
}

NodeId Parser::expression(unsigned least)
{
    const Nesting nesting(*this);
    const auto start = m_token.start;
    return binary(operand(), start, least);
}

/// Goes on after `left` with all operators at least as strong as `least`.
NodeId Parser::binary(NodeId left, Offset start, unsigned least)
{
    while (!m_failed) {
        auto op = binaryOperator();
        if (op == Operator::None || strength(op) < least)
            return left;
        ChildList list;
        m_build.append(list, left);
        const auto comparison = strength(op) == comparisonStrength;
        do {
            advance();
            if (comparison && joined(op, kind()) != Operator::None) {
                op = joined(op, kind());
                advance();
            } else if (op == Operator::Equal && at(TokenKind::Equal) && m_token.start == m_lastEnd) {
                auto *finding = fail(Rule::UnsupportedOperator, {m_lastEnd - 1, m_token.end},
                    "Equality is written with one equals sign.");
                removeFix(finding, tokenRange(), "Write one equals sign");
            }
            const auto rightStart = m_token.start;
            auto right = operand();
            // Stronger operators take the right operand first.
            if (strength(binaryOperator()) > strength(op))
                right = binary(right, rightStart, strength(op) + 1);
            m_build.append(list, right);
        } while (!m_failed && !comparison && binaryOperator() == op);
        left = built(NodeKind::Binary, from(start), list);
        m_build[left].op = op;
    }
    return left;
}

NodeId Parser::operand()
{
    if (m_failed)
        return omitted();
    if (at(Keyword::Not))
        return unary(Operator::Not, comparisonStrength);
    if (at(TokenKind::Minus))
        return unary(Operator::Negate, powerStrength);
    if (at(TokenKind::Plus))
        return unary(Operator::Plus, powerStrength);
    return primary();
}

NodeId Parser::unary(Operator op, unsigned least)
{
    const auto start = m_token.start;
    advance();
    ChildList list;
    m_build.append(list, expression(least));
    const auto id = built(NodeKind::Unary, from(start), list);
    m_build[id].op = op;
    return id;
}

NodeId Parser::literal(NodeKind kind)
{
    const auto id = m_build.leaf(kind, tokenRange());
    advance();
    return id;
}

NodeId Parser::primary()
{
    const auto start = m_token.start;
    switch (kind()) {
    case TokenKind::Number:
        return literal(NodeKind::Number);
    case TokenKind::String:
        return literal(NodeKind::String);
    case TokenKind::Date:
        if (m_script.textOf(tokenRange()).find_first_of("0123456789") == std::string_view::npos)
            report(Rule::InvalidDate, tokenRange(), quoted(tokenRange()) + " is no date.");
        return literal(NodeKind::Date);
    case TokenKind::LeftParenthesis:
        return suffixes(parenthesised(), start, false);
    case TokenKind::Dot:
        if (!isOpen(BlockKind::With))
            report(Rule::MemberOutsideWith, tokenRange(), "There is no With around this leading dot.");
        return suffixes(m_build.leaf(NodeKind::WithObject, {start, start}), start, false);
    case TokenKind::Name:
        break;
    default:
        return failUnexpected("An expression");
    }
    if (at(Keyword::New))
        return newObject();
    if (const auto kind = literalKeyword(m_token.keyword())) {
        const auto id = literal(*kind);
        return kind == NodeKind::Me ? suffixes(id, start, false) : id;
    }
    if (isReserved(m_token.keyword()))
        return failUnexpected("An expression");
    const auto id = m_build.leaf(NodeKind::Name, tokenRange(), m_token.name);
    advance();
    typeSuffix();
    return suffixes(id, start, false);
}

NodeId Parser::newObject()
{
    const auto start = m_token.start;
    advance();
    if (!atName())
        return failUnexpected("The name of a class");
    const auto name = m_token.name;
    advance();
    return m_build.leaf(NodeKind::New, from(start), name);
}

NodeId Parser::parenthesised()
{
    const auto opening = tokenRange();
    advance();
    ChildList list;
    m_build.append(list, expression());
    closeParenthesis(opening);
    return built(NodeKind::Parentheses, from(opening.start), list);
}

/// The closing parenthesis; where it is missing before something that ends the expression, it is taken as
/// there.
bool Parser::closeParenthesis(TextRange opening)
{
    if (m_failed || take(TokenKind::RightParenthesis))
        return !m_failed;
    if (at(TokenKind::Invalid)) {
        failInvalid();
        return false;
    }
    if (atStatementEnd() || (at(TokenKind::Name) && isReserved(m_token.keyword()))) {
        auto *finding = report(
            Rule::MissingParenthesis, opening, "This parenthesis is not closed before " + tokenName() + ".");
        replaceFix(finding, {m_lastEnd, m_lastEnd}, ")", "Close the parenthesis");
        return true;
    }
    fail(Rule::SyntaxError, tokenRange(),
        "A comma or a closing parenthesis is expected before " + tokenName() + ".");
    return false;
}

/// .name and (arguments), as many as follow. In a statement inside With, a dot after a blank starts an
/// argument.
NodeId Parser::suffixes(NodeId object, Offset start, bool statement)
{
    const Nesting nesting(*this);
    while (!m_failed) {
        if (at(TokenKind::Dot)
            && !(statement && isOpen(BlockKind::With) && spaceBefore()
                && m_build[object].kind != NodeKind::WithObject))
            object = member(object, start);
        else if (at(TokenKind::LeftParenthesis))
            object = apply(object, start);
        else
            break;
    }
    return object;
}

NodeId Parser::member(NodeId object, Offset start)
{
    advance();
    if (!at(TokenKind::Name)) {
        failUnexpected("The name of a member");
        return object;
    }
    ChildList list;
    m_build.append(list, object);
    const auto name = m_token.name;
    advance();
    const auto id = built(NodeKind::Member, from(start), list, name);
    typeSuffix();
    return id;
}

NodeId Parser::apply(NodeId callee, Offset start)
{
    const auto opening = tokenRange();
    advance();
    ChildList list;
    m_build.append(list, callee);
    if (!take(TokenKind::RightParenthesis)) {
        argumentList(list, true);
        closeParenthesis(opening);
    }
    return built(NodeKind::Apply, from(start), list);
}

/// Arguments separated by commas; any but the last can be left out.
bool Parser::argumentList(ChildList &list, bool parentheses)
{
    while (!m_failed) {
        if (at(TokenKind::Comma)) {
            m_build.append(list, omitted());
            advance();
            continue;
        }
        if (parentheses && at(TokenKind::RightParenthesis)) {
            failHere(Rule::MissingOperand, "An argument is expected after the comma.");
            return false;
        }
        m_build.append(list, expression());
        if (at(TokenKind::Colon) && peek().kind == TokenKind::Equal && peek().start == m_token.end)
            fail(Rule::UnsupportedOperator, {m_token.start, m_token.end + 1},
                "Arguments cannot be given by name.");
        if (!take(TokenKind::Comma))
            return !m_failed;
    }
    return false;
}

} // namespace kevra::script
