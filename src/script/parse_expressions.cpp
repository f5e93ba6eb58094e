// SPDX-License-Identifier: GPL-3.0-or-later
// Expressions, by operator precedence: Imp binds weakest, ^ strongest.
#include "script/nesting.h"
#include "script/parser_state.h"

namespace kevra::script {

namespace {

constexpr unsigned comparisonStrength = 7;
constexpr unsigned powerStrength = 14;

struct OperatorRow {
    Operator op;
    std::uint8_t strength;
    TokenKind sign; ///< Name if it is a keyword
    Keyword word = Keyword::None;
};

// In the order of Operator. Unary operators have no sign here: between operands it is a binary one.
constexpr std::array operators{
    OperatorRow{Operator::None, 0, TokenKind::End},
    OperatorRow{Operator::Imp, 1, TokenKind::Name, Keyword::Imp},
    OperatorRow{Operator::Eqv, 2, TokenKind::Name, Keyword::Eqv},
    OperatorRow{Operator::Xor, 3, TokenKind::Name, Keyword::Xor},
    OperatorRow{Operator::Or, 4, TokenKind::Name, Keyword::Or},
    OperatorRow{Operator::And, 5, TokenKind::Name, Keyword::And},
    OperatorRow{Operator::Not, 6, TokenKind::End},
    OperatorRow{Operator::Equal, comparisonStrength, TokenKind::Equal},
    OperatorRow{Operator::NotEqual, comparisonStrength, TokenKind::NotEqual},
    OperatorRow{Operator::Less, comparisonStrength, TokenKind::Less},
    OperatorRow{Operator::Greater, comparisonStrength, TokenKind::Greater},
    OperatorRow{Operator::LessEqual, comparisonStrength, TokenKind::LessEqual},
    OperatorRow{Operator::GreaterEqual, comparisonStrength, TokenKind::GreaterEqual},
    OperatorRow{Operator::Is, comparisonStrength, TokenKind::Name, Keyword::Is},
    OperatorRow{Operator::Concatenate, 8, TokenKind::Ampersand},
    OperatorRow{Operator::Add, 9, TokenKind::Plus},
    OperatorRow{Operator::Subtract, 9, TokenKind::Minus},
    OperatorRow{Operator::Mod, 10, TokenKind::Name, Keyword::Mod},
    OperatorRow{Operator::IntegerDivide, 11, TokenKind::IntegerDivide},
    OperatorRow{Operator::Multiply, 12, TokenKind::Multiply},
    OperatorRow{Operator::Divide, 12, TokenKind::Divide},
    OperatorRow{Operator::Negate, 13, TokenKind::End},
    OperatorRow{Operator::Plus, 13, TokenKind::End},
    OperatorRow{Operator::Power, powerStrength, TokenKind::Power},
};
static_assert(operators[static_cast<std::size_t>(Operator::Is)].op == Operator::Is);
static_assert(operators[static_cast<std::size_t>(Operator::Power)].op == Operator::Power);

constexpr auto operatorBySign = [] {
    std::array<Operator, static_cast<std::size_t>(TokenKind::Invalid) + 1> bySign{};
    for (const auto &row : operators) {
        if (row.sign != TokenKind::Name && row.sign != TokenKind::End)
            bySign[static_cast<std::size_t>(row.sign)] = row.op;
    }
    return bySign;
}();

constexpr auto operatorByWord = [] {
    std::array<Operator, static_cast<std::size_t>(lastKeyword) + 1> byWord{};
    for (const auto &row : operators) {
        if (row.sign == TokenKind::Name)
            byWord[static_cast<std::size_t>(row.word)] = row.op;
    }
    return byWord;
}();

constexpr unsigned strength(Operator op)
{
    return operators[static_cast<std::size_t>(op)].strength;
}

/// a < > b and a > = b, with a blank inside the operator.
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

struct LiteralWord {
    Keyword word;
    NodeKind kind;
};
constexpr std::array literalWords{
    LiteralWord{Keyword::True, NodeKind::True},
    LiteralWord{Keyword::False, NodeKind::False},
    LiteralWord{Keyword::Null, NodeKind::Null},
    LiteralWord{Keyword::Empty, NodeKind::Empty},
    LiteralWord{Keyword::Nothing, NodeKind::Nothing},
    LiteralWord{Keyword::Me, NodeKind::Me},
};

std::optional<NodeKind> literalKeyword(Keyword keyword)
{
    const auto found = std::ranges::find(literalWords, keyword, &LiteralWord::word);
    return found == literalWords.end() ? std::nullopt : std::optional(found->kind);
}

} // namespace

Operator Parser::binaryOperator()
{
    return at(TokenKind::Name) ? operatorByWord[static_cast<std::size_t>(m_token.keyword())]
                               : operatorBySign[static_cast<std::size_t>(kind())];
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

/// Continues after `left` with all operators that bind at least as strongly as `least`.
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
            // Operators that bind more strongly take the right operand first.
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
    if (isReserved(m_token.keyword())) {
        const auto word = literalKeyword(m_token.keyword());
        if (!word)
            return failUnexpected("An expression");
        const auto id = literal(*word);
        return word == NodeKind::Me ? suffixes(id, start, false) : id;
    }
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

/// The closing parenthesis. If the expression ends without it, it is assumed to be there.
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

/// Any number of .name and (arguments). In a statement inside With, a dot after a blank starts an argument.
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
