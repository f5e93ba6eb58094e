// SPDX-License-Identifier: GPL-3.0-or-later
// Declarations: variables, constants, procedures and classes.
#include "script/nesting.h"
#include "script/parser_state.h"

namespace kevra::script {

/// The declared name as an Identifier. A keyword is reported but still taken as the name.
NodeId Parser::declaredName(std::string_view what, bool member)
{
    if (!at(TokenKind::Name) || m_failed)
        return failUnexpected(what);
    if (isReserved(m_token.keyword()) && !member) {
        auto *finding = report(Rule::ReservedName, tokenRange(),
            "The keyword " + quoted(tokenRange()) + " cannot be used as a name.");
        replaceFix(finding, tokenRange(), "[" + std::string(m_script.textOf(tokenRange())) + "]",
            "Put it in brackets");
    }
    const auto id = m_build.leaf(NodeKind::Identifier, tokenRange(), m_token.name);
    advance();
    typeSuffix();
    return id;
}

NodeId Parser::dim(unsigned flags)
{
    const auto start = m_token.start;
    advance();
    return variables(start, flags);
}

NodeId Parser::variables(Offset start, unsigned flags)
{
    ChildList list;
    do
        m_build.append(list, variable());
    while (take(TokenKind::Comma));
    if (!m_failed && at(TokenKind::Equal) && m_build[list.last].kind == NodeKind::Variable) {
        const auto name = std::string(m_script.textOf(m_script.nameRange(list.last)));
        auto *finding
            = fail(Rule::ExpectedEndOfStatement, tokenRange(), "A declaration cannot assign a value.");
        replaceFix(finding, {m_lastEnd, m_lastEnd}, ": " + name, "Assign in a statement of its own");
    }
    const auto id = built(NodeKind::Dim, from(start), list);
    m_build[id].flags = flags & 0x3F;
    return id;
}

NodeId Parser::variable()
{
    const auto start = m_token.start;
    const auto name = declaredName("The name of a variable");
    if (m_failed)
        return name;
    ChildList list;
    m_build.append(list, name);
    const bool array = at(TokenKind::LeftParenthesis) && bounds(list);
    typeDeclaration();
    const auto id = built(NodeKind::Variable, from(start), list, m_build[name].name);
    m_build[id].flags = array ? flag::IsArray : 0;
    return id;
}

/// (3, 4) after a declared name; () for a dynamic array.
bool Parser::bounds(ChildList &list)
{
    const auto opening = tokenRange();
    advance();
    if (take(TokenKind::RightParenthesis))
        return true;
    do {
        const auto start = m_token.start;
        const auto bound = expression();
        m_build.append(list, bound);
        const auto text = m_script.textOf(m_build[bound].range());
        const bool integer = m_build[bound].kind == NodeKind::Number && text.find('.') == text.npos;
        if (!m_failed && (!integer || at(Keyword::To))) {
            skipToLineEnd();
            fail(Rule::InvalidBounds, from(start), "The bounds of a declared array are plain integers.");
        }
    } while (take(TokenKind::Comma));
    closeParenthesis(opening);
    return true;
}

NodeId Parser::constants(Offset start, unsigned flags)
{
    if (isOpen(BlockKind::Class) && !inProcedure())
        report(Rule::MisplacedDeclaration, tokenRange(), "A class has no constants; its procedures can.");
    advance();
    ChildList list;
    do
        m_build.append(list, constant());
    while (take(TokenKind::Comma));
    const auto id = built(NodeKind::Const, from(start), list);
    m_build[id].flags = flags & 0x3F;
    return id;
}

NodeId Parser::constant()
{
    const auto start = m_token.start;
    const auto name = declaredName("The name of a constant");
    typeDeclaration();
    if (!m_failed && !take(TokenKind::Equal))
        failHere(Rule::ConstantNotLiteral,
            "A constant needs a value: an equals sign is expected before " + tokenName() + ".");
    if (m_failed)
        return name;
    ChildList list;
    m_build.append(list, name);
    const auto value = expression();
    m_build.append(list, value);
    if (!m_failed && !literalValue(value))
        report(Rule::ConstantNotLiteral, m_build[value].range(),
            "The value of a constant must be a literal, not " + quoted(m_build[value].range()) + ".");
    return built(NodeKind::Constant, from(start), list, m_build[name].name);
}

bool Parser::literalValue(NodeId value)
{
    switch (m_build[value].kind) {
    case NodeKind::Number:
    case NodeKind::String:
    case NodeKind::Date:
    case NodeKind::True:
    case NodeKind::False:
    case NodeKind::Null:
    case NodeKind::Empty:
    case NodeKind::Nothing:
    case NodeKind::Wrong:
        return true;
    case NodeKind::Unary:
    case NodeKind::Parentheses:
        return literalValue(m_build[value].firstChild);
    default:
        return false;
    }
}

/// At Sub, Function or Property Get, Let, Set; Property alone is a name.
bool Parser::atProcedure()
{
    if (at(Keyword::Sub) || at(Keyword::Function))
        return true;
    return at(Keyword::Property) && (peekIs(Keyword::Get) || peekIs(Keyword::Let) || peekIs(Keyword::Set));
}

/// At a declaration that is not allowed here, in a procedure or a class within a class, so an end is missing.
bool Parser::atDeclarationBoundary()
{
    if (at(Keyword::Class) && (inProcedure() || isOpen(BlockKind::Class)))
        return true;
    if (!inProcedure())
        return false;
    if (at(Keyword::Public) || at(Keyword::Private))
        return peekIs(Keyword::Sub) || peekIs(Keyword::Function) || peekIs(Keyword::Property)
            || peekIs(Keyword::Default) || peekIs(Keyword::Class);
    return atProcedure();
}

bool Parser::classMember()
{
    return at(Keyword::Dim) || at(Keyword::Public) || at(Keyword::Private) || atProcedure();
}

NodeId Parser::publicOrPrivate()
{
    const auto start = m_token.start;
    unsigned flags = at(Keyword::Public) ? flag::Public : flag::Private;
    const auto word = std::string(m_script.textOf(tokenRange()));
    advance();
    if (at(Keyword::Default)
        && (peekIs(Keyword::Sub) || peekIs(Keyword::Function) || peekIs(Keyword::Property))) {
        flags |= flag::Default;
        advance();
    }
    if (atProcedure())
        return procedure(start, flags);
    if (at(Keyword::Const))
        return constants(start, flags);
    if (at(Keyword::Class) || at(Keyword::Dim)) {
        const auto range = from(start);
        auto *finding = report(
            Rule::MisplacedDeclaration, tokenRange(), quoted(tokenRange()) + " cannot follow " + word + ".");
        if (at(Keyword::Class))
            removeFix(finding, {range.start, m_token.start}, "Remove " + word);
        else
            removeFix(finding, {m_token.start, peek().start}, "Remove Dim");
        return at(Keyword::Class) ? classDeclaration() : dim(flags);
    }
    if (inProcedure())
        report(
            Rule::MisplacedDeclaration, from(start), "Inside a procedure variables are declared with Dim.");
    return variables(start, flags);
}

NodeId Parser::procedure(Offset start, unsigned flags)
{
    const bool function = at(Keyword::Function);
    auto block = function ? BlockKind::Function : BlockKind::Sub;
    auto kind = function ? NodeKind::Function : NodeKind::Sub;
    const bool inClass = isOpen(BlockKind::Class);
    if (at(Keyword::Property)) {
        block = BlockKind::Property;
        kind = peekIs(Keyword::Get) ? NodeKind::PropertyGet
            : peekIs(Keyword::Let)  ? NodeKind::PropertyLet
                                    : NodeKind::PropertySet;
        advance();
        if (!inClass)
            report(Rule::MisplacedDeclaration, {start, m_token.end}, "A property stands inside a class.");
    }
    advance();
    ChildList children;
    const auto identifier = declaredName("The name of the procedure", inClass);
    const auto name = m_build[identifier].name;
    const auto spelled = m_script.textOf(m_build[identifier].range());
    m_build.append(children, identifier);
    const bool listed = at(TokenKind::LeftParenthesis);
    const auto count = children.count;
    if (listed)
        parameters(children);
    typeDeclaration();
    if (!m_failed)
        checkParameters(kind, spelled, m_build[identifier].range(), children.count - count);
    // A statement may directly follow the parentheses.
    if (!listed)
        expectStatementEnd();
    recover();
    m_build.append(children, procedureBody(block, start, spelled));
    const auto id = built(kind, from(start), children, name);
    m_build[id].flags = flags & 0x3F;
    return id;
}

/// The statements up to the end of the procedure. Exit and block ends in it do not refer to blocks around it.
NodeId Parser::procedureBody(BlockKind kind, Offset start, std::string_view name)
{
    const auto outside = m_openCount;
    const auto noted = m_indents.count();
    m_openCount.fill(0);
    m_openCount[static_cast<std::size_t>(BlockKind::Class)]
        = outside[static_cast<std::size_t>(BlockKind::Class)];
    const auto nameEnd
        = name.empty() ? start : static_cast<Offset>(name.data() + name.size() - m_script.text.data());
    open(kind, {start, nameEnd}, name);
    const auto body = block(kind);
    takeBlockEnd(kind);
    m_openCount = outside;
    m_indents.forget(noted);
    return body;
}

void Parser::checkParameters(NodeKind kind, std::string_view name, TextRange range, unsigned count)
{
    if ((kind == NodeKind::PropertyLet || kind == NodeKind::PropertySet) && count == 0)
        report(Rule::PropertyArguments, range,
            "Property Let and Property Set need a parameter for the new value.");
    const auto lower = folded(name);
    if (kind == NodeKind::Sub && isOpen(BlockKind::Class) && count > 0
        && (lower == "class_initialize" || lower == "class_terminate"))
        report(Rule::PropertyArguments, range, quoted(range) + " takes no parameters.");
}

NodeId Parser::parameters(ChildList &list)
{
    const auto opening = tokenRange();
    advance();
    if (take(TokenKind::RightParenthesis))
        return list.first;
    do
        m_build.append(list, parameter());
    while (take(TokenKind::Comma));
    closeParenthesis(opening);
    return list.first;
}

NodeId Parser::parameter()
{
    const auto start = m_token.start;
    if ((at(Keyword::Optional) || at(Keyword::ParamArray)) && peek().kind == TokenKind::Name) {
        auto *finding = report(Rule::OptionalParameter, tokenRange(),
            "Parameters cannot be "
                + std::string(at(Keyword::Optional) ? "optional." : "gathered in an array."));
        removeFix(
            finding, {m_token.start, peek().start}, "Remove " + std::string(m_script.textOf(tokenRange())));
        advance();
    }
    const unsigned flags = at(Keyword::ByVal) ? flag::ByVal : at(Keyword::ByRef) ? flag::ByRef : 0;
    if (flags != 0)
        advance();
    const auto name = declaredName("The name of a parameter");
    if (m_failed)
        return name;
    ChildList list;
    m_build.append(list, name);
    const auto opening = tokenRange();
    const bool array = take(TokenKind::LeftParenthesis);
    if (array)
        closeParenthesis(opening);
    typeDeclaration();
    if (!m_failed && at(TokenKind::Equal)) {
        const auto before = m_lastEnd;
        const auto valueStart = m_token.start;
        advance();
        expression();
        auto *finding
            = report(Rule::OptionalParameter, from(valueStart), "Parameters cannot have default values.");
        removeFix(finding, {before, m_lastEnd}, "Remove the default value");
    }
    const auto id = built(NodeKind::Parameter, from(start), list, m_build[name].name);
    m_build[id].flags = (flags | (array ? flag::IsArray : 0)) & 0x3F;
    return id;
}

NodeId Parser::classDeclaration()
{
    const auto start = m_token.start;
    advance();
    ChildList children;
    const auto identifier = declaredName("The name of the class");
    const auto name = m_build[identifier].name;
    const auto spelled = m_script.textOf(m_build[identifier].range());
    m_build.append(children, identifier);
    const auto outer = std::exchange(m_strayInClass, std::nullopt);
    const auto head = from(start);
    open(BlockKind::Class, head, spelled);
    expectHeadEnd();
    m_build.append(children, block(BlockKind::Class, true));
    const bool closed = at(Keyword::End) && endedBlock() == BlockKind::Class;
    takeBlockEnd(BlockKind::Class);
    if (closed && m_strayInClass)
        report(Rule::MisplacedDeclaration, *m_strayInClass,
            "Between the members of a class stands no statement.");
    m_strayInClass = outer;
    return built(NodeKind::Class, from(start), children, name);
}

} // namespace kevra::script
