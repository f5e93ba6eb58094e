// SPDX-License-Identifier: GPL-3.0-or-later
// Simple statements: assignments, calls and those of a few words.
#include "script/nesting.h"
#include "script/parser_state.h"

namespace kevra::script {

/// Parses the statement here and leaves the parser after it. None at the end of a block.
NodeId Parser::statement()
{
    const Nesting nesting(*this);
    const bool option = at(Keyword::Option);
    const auto id = at(TokenKind::OutputStart) ? output()
        : at(TokenKind::Name)                  ? keywordStatement()
                                               : callOrAssign();
    m_statementSeen = m_statementSeen || !option;
    return id;
}

NodeId Parser::keywordStatement()
{
    switch (m_token.keyword()) {
    case Keyword::If:
        return ifStatement();
    case Keyword::Select:
        return selectStatement();
    case Keyword::For:
        return forStatement();
    case Keyword::Do:
        return doStatement();
    case Keyword::While:
        return whileStatement();
    case Keyword::With:
        return withStatement();
    case Keyword::Set:
        return setStatement();
    case Keyword::Call:
        return callStatement();
    case Keyword::Exit:
        return exitStatement();
    case Keyword::On:
        return onError();
    case Keyword::ReDim:
        return redim();
    case Keyword::Stop:
        return simple(NodeKind::Stop);
    case Keyword::Option:
        return optionExplicit();
    case Keyword::GoTo:
    case Keyword::Resume:
        return labelJump();
    case Keyword::End:
        return loneEnd();
    default:
        return declarationOrWrong();
    }
}

NodeId Parser::declarationOrWrong()
{
    const auto start = m_token.start;
    switch (m_token.keyword()) {
    case Keyword::Dim:
        return dim(0);
    case Keyword::Const:
        return constants(start, 0);
    case Keyword::Public:
    case Keyword::Private:
        return publicOrPrivate();
    case Keyword::Sub:
    case Keyword::Function:
        return procedure(start, 0);
    case Keyword::Class:
        return classDeclaration();
    case Keyword::Property:
        return atProcedure() ? procedure(start, 0) : callOrAssign();
    case Keyword::Let: {
        auto *finding = fail(Rule::UnsupportedStatement, tokenRange(), "Values are assigned without Let.");
        removeFix(finding, {start, peek().start}, "Remove Let");
        return wrong(start);
    }
    default:
        return callOrAssign();
    }
}

NodeId Parser::callOrAssign()
{
    const auto start = m_token.start;
    if (at(TokenKind::Number)) {
        fail(Rule::LineLabel, tokenRange(), "A statement cannot begin with a number.");
        return wrong(start);
    }
    if (!atName() && !at(TokenKind::Dot) && !at(TokenKind::LeftParenthesis) && !at(Keyword::Me)) {
        if (at(TokenKind::Invalid) || at(TokenKind::RightParenthesis))
            return failUnexpected("A statement");
        fail(Rule::SyntaxError, tokenRange(), "No statement begins with " + tokenName() + ".");
        return wrong(start);
    }
    NodeId target = 0;
    if (atName()) {
        target = m_build.leaf(NodeKind::Name, tokenRange(), m_token.name);
        advance();
        typeSuffix();
        target = suffixes(target, start, true);
    } else if (at(TokenKind::Dot)) {
        if (!isOpen(BlockKind::With))
            report(Rule::MemberOutsideWith, tokenRange(), "There is no With around this leading dot.");
        target = suffixes(m_build.leaf(NodeKind::WithObject, {start, start}), start, true);
    } else {
        target = primary();
    }
    if (m_failed)
        return target;
    if (at(TokenKind::Equal))
        return assign(target, start, NodeKind::Assign);
    return computedAssignment(target) ? wrong(start) : callWithArguments(target, start);
}

NodeId Parser::assign(NodeId target, Offset start, NodeKind kind)
{
    const auto targetKind = m_build[target].kind;
    if (targetKind != NodeKind::Name && targetKind != NodeKind::Member && targetKind != NodeKind::Apply)
        fail(Rule::InvalidAssignment, m_build[target].range(),
            "Nothing can be assigned to " + quoted(m_build[target].range()) + ".");
    advance();
    if (at(TokenKind::Equal) && m_token.start == m_lastEnd) {
        auto *finding = fail(Rule::UnsupportedOperator, {m_lastEnd - 1, m_token.end},
            "A value is assigned with one equals sign.");
        removeFix(finding, tokenRange(), "Write one equals sign");
    }
    ChildList list;
    m_build.append(list, target);
    m_build.append(list, expression());
    return built(kind, from(start), list);
}

/// x += 1, x++ and the like.
bool Parser::computedAssignment(NodeId target)
{
    const auto op = binaryOperator();
    if (at(TokenKind::Name) || op == Operator::None)
        return false;
    const auto sign = tokenRange();
    const auto next = peek();
    if (next.start != sign.end)
        return false;
    const auto targetRange = m_build[target].range();
    if (next.kind == TokenKind::Equal && op != Operator::Less && op != Operator::Greater) {
        const auto name = std::string(m_script.textOf(targetRange));
        auto *finding = fail(Rule::UnsupportedOperator, {sign.start, next.end},
            "VBScript has no operator " + quoted({sign.start, next.end}) + ".");
        replaceFix(finding, {sign.start, next.end}, "= " + name + " " + std::string(m_script.textOf(sign)),
            "Write the variable on both sides");
        return true;
    }
    if (next.kind != kind() || (op != Operator::Add && op != Operator::Subtract))
        return false;
    // x ++ y is a call with the argument +(+y); x ++ alone was meant as an increment.
    const auto rest = m_script.text.find_first_not_of(" \t", next.end);
    if (rest != std::string_view::npos
        && std::string_view("\r\n:'").find(m_script.text[rest]) == std::string_view::npos)
        return false;
    const auto name = std::string(m_script.textOf(targetRange));
    auto *finding = fail(Rule::UnsupportedOperator, {sign.start, next.end},
        "VBScript has no operator " + quoted({sign.start, next.end}) + ".");
    replaceFix(finding, {sign.start, next.end},
        " = " + name + " " + std::string(m_script.textOf(sign)) + " 1", "Write an assignment");
    return true;
}

/// `f (a)` passes a by value: the parentheses belong to the argument. Returns them as an expression.
NodeId Parser::unwrapArgument(NodeId apply)
{
    const auto callee = m_build[apply].firstChild;
    const auto argument = m_build[callee].nextSibling;
    const auto opening = m_script.text.find('(', m_build[callee].end);
    m_build[callee].nextSibling = 0;
    m_build[apply].kind = NodeKind::Parentheses;
    m_build[apply].start = static_cast<std::uint32_t>(opening);
    m_build[apply].firstChild = argument;
    return callee;
}

/// In f (a).b & c the argument of f starts at the parenthesis: the innermost call with a blank before it.
NodeId Parser::splitPoint(NodeId callee) const
{
    const auto &tree = m_build.tree();
    if (tree[callee].kind == NodeKind::Apply)
        return callee;
    NodeId found = 0;
    for (auto id = callee; tree[id].kind == NodeKind::Member || tree[id].kind == NodeKind::Apply;
         id = tree[id].firstChild) {
        const auto end = tree[tree[id].firstChild].end;
        const auto next = end < m_script.text.size() ? m_script.text[end] : '(';
        if (tree[id].kind == NodeKind::Apply && next != '(')
            found = id;
    }
    return found;
}

void Parser::tooManyInParentheses(NodeId apply)
{
    const auto calleeEnd = m_build[m_build[apply].firstChild].end;
    const auto opening = static_cast<Offset>(m_script.text.find('(', calleeEnd));
    const auto closing = static_cast<Offset>(m_build[apply].end) - 1;
    auto *finding = fail(Rule::SubCallParentheses, {opening, closing + 1},
        "A call whose result is not used takes no parentheses around its arguments.");
    if (finding == nullptr || !atStatementEnd())
        return;
    const auto start = static_cast<Offset>(m_build[apply].start);
    finding->fixes.push_back(
        {"Remove the parentheses", {{{calleeEnd, opening + 1}, " "}, {{closing, closing + 1}, ""}}});
    finding->fixes.push_back({"Write Call", {{{start, start}, "Call "}}});
}

unsigned Parser::argumentCount(NodeId apply) const
{
    unsigned count = 0;
    const auto &tree = m_build.tree();
    for (auto id = tree[tree[apply].firstChild].nextSibling; id != 0; id = tree[id].nextSibling)
        ++count;
    return count;
}

/// f a, b; f (a), b; f (a) & b, c
NodeId Parser::callWithArguments(NodeId callee, Offset start)
{
    ChildList list;
    const bool sign = at(TokenKind::Plus) || at(TokenKind::Minus);
    const bool applied = m_build[callee].kind == NodeKind::Apply;
    const auto arguments = applied ? argumentCount(callee) : 0;
    const bool operatorNext = binaryOperator() != Operator::None;
    if (arguments > 1 && (atStatementEnd() || at(TokenKind::Comma) || operatorNext)) {
        tooManyInParentheses(callee);
        return finishedCall(callee, list, start);
    }
    if (operatorNext && (arguments == 1 || !sign))
        return callWithLeadingParentheses(callee, start);
    if (applied && arguments == 0)
        callee = m_build[callee].firstChild;
    if (arguments == 1 && !atExpression()) {
        const auto argument = callee;
        callee = unwrapArgument(argument);
        m_build.append(list, argument);
        if (take(TokenKind::Comma))
            argumentList(list, false);
    } else if (at(TokenKind::Comma) || atExpression()) {
        argumentList(list, false);
    }
    return finishedCall(callee, list, start);
}

/// f (a) & b: the parentheses were the start of the first argument.
NodeId Parser::callWithLeadingParentheses(NodeId callee, Offset start)
{
    const auto split = splitPoint(callee);
    if (split == 0 || argumentCount(split) != 1) {
        expectStatementEnd();
        return callee;
    }
    const auto name = unwrapArgument(split);
    const auto argumentStart = m_build[split].start;
    for (auto id = callee; id != split; id = m_build[id].firstChild)
        m_build[id].start = argumentStart;
    ChildList list;
    m_build.append(list, binary(callee, argumentStart, 0));
    if (take(TokenKind::Comma))
        argumentList(list, false);
    return finishedCall(name, list, start);
}

NodeId Parser::finishedCall(NodeId callee, ChildList list, Offset start)
{
    ChildList all;
    const auto arguments = list.first;
    m_build[callee].nextSibling = 0;
    m_build.append(all, callee);
    m_build[callee].nextSibling = arguments;
    all.depth = std::max(all.depth, list.depth);
    return built(NodeKind::CallStatement, from(start), all);
}

NodeId Parser::setStatement()
{
    const auto start = m_token.start;
    advance();
    if (!atName() && !at(TokenKind::Dot) && !at(Keyword::Me) && !at(TokenKind::LeftParenthesis))
        return failUnexpected("A variable or a property");
    const auto target = primary();
    if (!m_failed && !at(TokenKind::Equal))
        failHere(Rule::InvalidAssignment, "An equals sign is expected before " + tokenName() + ".");
    return m_failed ? wrong(start) : assign(target, start, NodeKind::SetAssign);
}

NodeId Parser::callStatement()
{
    const auto start = m_token.start;
    advance();
    if (!atName() && !at(TokenKind::Dot) && !at(Keyword::Me) && !at(TokenKind::LeftParenthesis))
        return failUnexpected("The name of a procedure");
    auto callee = primary();
    ChildList list;
    if (m_build[callee].kind == NodeKind::Apply) {
        // Moves the arguments from the call in the expression to the statement.
        const auto name = m_build[callee].firstChild;
        list.first = m_build[name].nextSibling;
        list.depth = m_build[callee].depth;
        callee = name;
    }
    const auto id = finishedCall(callee, list, start);
    m_build[id].flags = flag::WithCall;
    if (!m_failed && at(TokenKind::Equal))
        fail(Rule::InvalidAssignment, tokenRange(), "Call takes a procedure, not an assignment.");
    return id;
}

NodeId Parser::exitStatement()
{
    const auto start = m_token.start;
    advance();
    struct Exit {
        Keyword keyword;
        BlockKind block;
    };
    constexpr std::array exits{Exit{Keyword::Do, BlockKind::Do}, Exit{Keyword::For, BlockKind::For},
        Exit{Keyword::Sub, BlockKind::Sub}, Exit{Keyword::Function, BlockKind::Function},
        Exit{Keyword::Property, BlockKind::Property}};
    const auto keyword = m_token.keyword();
    const auto found = std::ranges::find(exits, keyword, &Exit::keyword);
    if (!at(TokenKind::Name) || found == exits.end()) {
        failHere(Rule::ExitOutside,
            "After Exit stands Do, For, Sub, Function or Property, not " + tokenName() + ".");
        return wrong(start);
    }
    const auto name = m_token.name;
    const auto word = std::string(m_script.textOf(tokenRange()));
    advance();
    const bool leavesHandler = (found->block == BlockKind::Sub || found->block == BlockKind::Function)
        && m_unitHandlesEvent[m_unit];
    if (!isOpen(found->block) && !leavesHandler)
        report(Rule::ExitOutside, from(start), "There is no " + word + " around this Exit " + word + ".");
    return m_build.leaf(NodeKind::Exit, from(start), name);
}

NodeId Parser::onError()
{
    const auto start = m_token.start;
    advance();
    if (!take(Keyword::Error)) {
        failHere(Rule::SyntaxError, "Error is expected after On.");
        return wrong(start);
    }
    if (take(Keyword::Resume)) {
        if (!take(Keyword::Next))
            failHere(Rule::SyntaxError, "Next is expected after On Error Resume.");
        return m_build.leaf(NodeKind::OnErrorResumeNext, from(start));
    }
    if (!take(Keyword::GoTo)) {
        failHere(Rule::SyntaxError, "On Error goes on with Resume Next or GoTo 0.");
        return wrong(start);
    }
    if (!at(TokenKind::Number) || m_script.textOf(tokenRange()) != "0") {
        failHere(Rule::LabelJump, "After On Error GoTo stands nothing but 0.");
        return wrong(start);
    }
    advance();
    return m_build.leaf(NodeKind::OnErrorGoTo0, from(start));
}

NodeId Parser::optionExplicit()
{
    const auto start = m_token.start;
    advance();
    if (!take(Keyword::Explicit)) {
        failHere(Rule::MisplacedOptionExplicit, "Explicit is the only option.");
        return wrong(start);
    }
    if (m_statementSeen)
        report(Rule::MisplacedOptionExplicit, from(start), "Option Explicit stands after other statements.");
    return m_build.leaf(NodeKind::OptionExplicit, from(start));
}

NodeId Parser::redim()
{
    const auto start = m_token.start;
    advance();
    const bool preserve = at(Keyword::Preserve) && peek().kind == TokenKind::Name;
    if (preserve)
        advance();
    ChildList list;
    do {
        if (!atName() && !at(TokenKind::Dot) && !at(Keyword::Me))
            return failUnexpected("The name of an array");
        const auto array = primary();
        if (!m_failed && (m_build[array].kind != NodeKind::Apply || m_build.tree().child(array, 1) == 0))
            fail(Rule::InvalidBounds, m_build[array].range(), "ReDim needs the bounds in parentheses.");
        m_build.append(list, array);
        typeDeclaration();
    } while (take(TokenKind::Comma));
    const auto id = built(NodeKind::ReDim, from(start), list);
    m_build[id].flags = preserve ? flag::Preserve : 0;
    return id;
}

NodeId Parser::simple(NodeKind kind)
{
    const auto id = m_build.leaf(kind, tokenRange());
    advance();
    return id;
}

/// The expression of <%= %>.
NodeId Parser::output()
{
    const auto start = m_token.start;
    advance();
    if (atLineEnd())
        return m_build.leaf(NodeKind::Output, {start, start});
    ChildList list;
    m_build.append(list, expression());
    return built(NodeKind::Output, from(start), list);
}

NodeId Parser::labelJump()
{
    const auto start = m_token.start;
    fail(Rule::LabelJump, tokenRange(), "VBScript has no " + quoted(tokenRange()) + ".");
    return wrong(start);
}

/// An End that ends no block, alone or followed by something.
NodeId Parser::loneEnd()
{
    const auto start = m_token.start;
    const auto next = peek();
    const TextRange range{start, next.kind == TokenKind::Name ? next.end : m_token.end};
    fail(Rule::UnsupportedStatement, range, quoted(range) + " ends nothing in VBScript.");
    return wrong(start);
}

} // namespace kevra::script
