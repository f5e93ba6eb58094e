// SPDX-License-Identifier: GPL-3.0-or-later
// The recursive-descent parser, implemented in parse_*.cpp. Private: use parser.h.
//
// After a syntax error `m_failed` is set: the functions then return at once and the rest of the line is
// skipped. Open blocks are kept on a stack, so that a missing end is distinguished from a surplus one.
#pragma once

#include "script/block_indents.h"
#include "script/lexer.h"
#include "script/parser.h"
#include "script/tree_builder.h"

#include <array>
#include <optional>
#include <string>
#include <utility>

namespace kevra::script {

inline constexpr std::size_t blockKinds = 11;

struct OpenBlock {
    BlockKind kind{};
    TextRange head; ///< the words that open it
    std::string_view name; ///< of a procedure or class
    TextRange elseRange{}; ///< the Else of an If, once it is reached
};

class Parser {
public:
    Parser(ParsedScript &script, std::span<const Piece> pieces);
    void run();

private:
    // Lookahead.
    void advance();
    const Token &peek();
    [[nodiscard]] TokenKind kind() const { return m_token.kind; }
    [[nodiscard]] bool at(TokenKind kind) const { return m_token.kind == kind; }
    [[nodiscard]] bool at(Keyword keyword) const
    {
        return m_token.keyword() == keyword && at(TokenKind::Name);
    }
    [[nodiscard]] bool atName() const { return at(TokenKind::Name) && !isReserved(m_token.keyword()); }
    [[nodiscard]] bool atLineEnd() const;
    [[nodiscard]] bool atStatementEnd() const { return at(TokenKind::Colon) || atLineEnd(); }
    [[nodiscard]] bool atTextEnd() const { return at(TokenKind::End) || at(TokenKind::UnitEnd); }
    [[nodiscard]] bool atExpression() const;
    [[nodiscard]] bool peekIs(Keyword keyword);
    bool take(TokenKind kind);
    bool take(Keyword keyword);
    [[nodiscard]] bool spaceBefore() const;
    [[nodiscard]] TextRange tokenRange() const { return {m_token.start, m_token.end}; }
    [[nodiscard]] TextRange from(Offset start) const { return {start, std::max<Offset>(start, m_lastEnd)}; }
    /// The position after the last token, where something is missing.
    [[nodiscard]] TextRange hereRange() const;

    // Syntax errors.
    Finding *report(Rule rule, TextRange range, std::string what);
    Finding *fail(Rule rule, TextRange range, std::string what);
    Finding *failHere(Rule rule, std::string what);
    NodeId failUnexpected(std::string_view expected);
    void failInvalid();
    void failContinuation();
    [[nodiscard]] std::vector<TextEdit> plainCharacters(Offset start) const;
    void reportUnclosed(const Token &token);
    void expectStatementEnd();
    void expectHeadEnd();
    void skipToLineEnd();
    void recover();
    void stopHere();
    void typeSuffix();
    void typeDeclaration();
    [[nodiscard]] Offset line(Offset offset);
    [[nodiscard]] std::string inLine(Offset offset);
    [[nodiscard]] std::string quoted(TextRange range) const;
    [[nodiscard]] std::string tokenName() const;
    void removeFix(Finding *finding, TextRange range, std::string title);
    void replaceFix(Finding *finding, TextRange range, std::string text, std::string title);

    // Expressions.
    NodeId expression(unsigned least = 0);
    NodeId binary(NodeId left, Offset start, unsigned least);
    NodeId operand();
    NodeId unary(Operator op, unsigned least);
    NodeId primary();
    NodeId literal(NodeKind kind);
    NodeId newObject();
    NodeId parenthesised();
    NodeId suffixes(NodeId object, Offset start, bool statement);
    NodeId member(NodeId object, Offset start);
    NodeId apply(NodeId callee, Offset start);
    bool argumentList(ChildList &list, bool parentheses);
    bool closeParenthesis(TextRange opening);
    NodeId built(NodeKind kind, TextRange range, const ChildList &children, NameId name = NameId::None);
    NodeId omitted() { return m_build.leaf(NodeKind::Omitted, {m_lastEnd, m_lastEnd}); }
    [[nodiscard]] Operator binaryOperator();

    // Statements.
    NodeId statement();
    NodeId keywordStatement();
    NodeId declarationOrWrong();
    NodeId callOrAssign();
    NodeId assign(NodeId target, Offset start, NodeKind kind);
    NodeId callWithArguments(NodeId callee, Offset start);
    NodeId callWithLeadingParentheses(NodeId callee, Offset start);
    [[nodiscard]] unsigned argumentCount(NodeId apply) const;
    NodeId finishedCall(NodeId callee, ChildList list, Offset start);
    bool computedAssignment(NodeId target);
    NodeId unwrapArgument(NodeId apply);
    [[nodiscard]] NodeId splitPoint(NodeId callee) const;
    void tooManyInParentheses(NodeId apply);
    NodeId setStatement();
    NodeId callStatement();
    NodeId exitStatement();
    NodeId onError();
    NodeId optionExplicit();
    NodeId redim();
    NodeId simple(NodeKind kind);
    NodeId output();
    NodeId labelJump();
    NodeId loneEnd();
    NodeId wrong(Offset start);

    // Blocks.
    NodeId ifStatement();
    NodeId inlineIf(Offset start, NodeId condition);
    NodeId inlineStatements();
    void endInlineStatement();
    NodeId ifBranch(Offset start, NodeId condition);
    bool thenKeyword();
    NodeId selectStatement();
    NodeId caseBranch();
    NodeId caseValues(ChildList &children);
    NodeId forStatement();
    NodeId forEach(Offset start);
    NodeId loopVariable();
    NodeId doStatement();
    NodeId whileStatement();
    NodeId withStatement();
    NodeId block(BlockKind kind, bool classBody = false);
    bool blockEnds(BlockKind kind);
    bool atBlockEnd();
    void statementsInto(ChildList &list, bool classBody);
    [[nodiscard]] std::optional<BlockKind> endedBlock();
    void takeBlockEnd(BlockKind kind);
    void strayEnd(BlockKind kind);
    [[nodiscard]] std::optional<TextRange> surplusElse() const;
    void unclosed(const OpenBlock &open);
    void skipBlockEnd();
    [[nodiscard]] TextRange blockEndRange();
    [[nodiscard]] bool isOpen(BlockKind kind) const
    {
        return m_openCount[static_cast<std::size_t>(kind)] > 0;
    }
    [[nodiscard]] bool inProcedure() const
    {
        return isOpen(BlockKind::Sub) || isOpen(BlockKind::Function) || isOpen(BlockKind::Property);
    }
    void open(BlockKind kind, TextRange head, std::string_view name = {});
    void close();

    // Declarations.
    NodeId declaredName(std::string_view what, bool member = false);
    NodeId dim(unsigned flags);
    NodeId variables(Offset start, unsigned flags);
    NodeId variable();
    bool bounds(ChildList &list);
    NodeId constants(Offset start, unsigned flags);
    NodeId constant();
    bool literalValue(NodeId value);
    NodeId publicOrPrivate();
    NodeId procedure(Offset start, unsigned flags);
    NodeId parameters(ChildList &list);
    NodeId parameter();
    NodeId procedureBody(BlockKind kind, Offset start, std::string_view name);
    void checkParameters(NodeKind kind, std::string_view name, TextRange range, unsigned count);
    NodeId classDeclaration();
    [[nodiscard]] bool atProcedure();
    [[nodiscard]] bool atDeclarationBoundary();
    bool classMember();

    class Nesting;

    ParsedScript &m_script;
    TreeBuilder m_build;
    Lexer m_lexer;
    Token m_token;
    std::optional<Token> m_peeked;
    Offset m_lastEnd = 0; ///< of the token before
    bool m_failed = false; ///< skip the rest of the line
    bool m_quiet = false; ///< the line has an error already: further ones are likely consequences
    bool m_stopped = false;
    bool m_statementStart = true; ///< the current token is the first after a separator
    bool m_statementSeen = false;
    std::vector<bool> m_unitHandlesEvent; ///< by compilation unit
    std::size_t m_unit = 0;
    unsigned m_depth = 0;
    std::vector<OpenBlock> m_open;
    std::array<unsigned, blockKinds> m_openCount{};
    BlockIndents m_indents;
    std::optional<TextRange> m_lastInlineIf;
    std::optional<TextRange> m_strayInClass; ///< the first statement between the members of the class
    std::optional<LineIndex> m_lines;
};

} // namespace kevra::script
