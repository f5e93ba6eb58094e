// SPDX-License-Identifier: GPL-3.0-or-later
// The syntax tree: nodes in one array, each with its range, its first child and its next sibling.
// A tree is at most maxTreeDepth deep, so that a recursive walk is safe.
#pragma once

#include "script/finding.h"
#include "script/names.h"
#include "text/types.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace kevra::script {

inline constexpr unsigned maxTreeDepth = 1000;

/// Comments list the children in order; `?` may be an Omitted node, `*` any number, `+` at least one.
enum class NodeKind : std::uint8_t {
    // Parts.
    Script, ///< Statement* of all pieces
    Block, ///< Statement*
    Omitted, ///< an optional part that is missing: an argument, step, condition
    Identifier, ///< the name in a declaration, its first child
    Wrong, ///< a syntax error; any children

    // Expressions.
    Name, ///< a variable, procedure, class or constant
    Number,
    String, ///< the range has the quotation marks
    Date,
    True,
    False,
    Null,
    Empty,
    Nothing,
    Me,
    WithObject, ///< the object of a leading dot; empty range
    Member, ///< object; .name
    Apply, ///< callee, (Expression or Omitted)*: a call with parentheses or an index
    New, ///< .name the class; no child
    Parentheses, ///< expression
    Unary, ///< op; operand
    Binary, ///< op; two operands, or more of one operator, from the left: a & b & c

    // Declarations.
    OptionExplicit,
    Dim, ///< Variable+; flags Public, Private
    Variable, ///< Identifier, bounds*; flags IsArray
    Const, ///< Constant+; flags Public, Private
    Constant, ///< Identifier, expression
    Sub, ///< Identifier, Parameter*, Block; flags Public, Private, Default
    Function, ///< the same
    PropertyGet, ///< the same
    PropertyLet, ///< the same
    PropertySet, ///< the same
    Parameter, ///< Identifier; flags ByVal, ByRef, IsArray
    Class, ///< Identifier, Block of Dim, Sub, Function, Property

    // Statements.
    Assign, ///< target (Name, Member or Apply), expression
    SetAssign, ///< the same with Set
    CallStatement, ///< callee, (Expression or Omitted)*; flags WithCall. See calleeOf() about f (a).
    Output, ///< expression of <%= %>
    ReDim, ///< Apply+ (array, bounds); flags Preserve
    If, ///< IfBranch+, ElseBranch if there is one; flags SingleLine
    IfBranch, ///< condition, Block: If or ElseIf
    ElseBranch, ///< Block
    Select, ///< expression, CaseBranch*, CaseElse*
    CaseBranch, ///< Expression+, Block
    CaseElse, ///< Block
    For, ///< Name, from, to, step?, Block
    ForEach, ///< Name, collection, Block
    DoLoop, ///< condition?, Block; flags Until, AtEnd
    While, ///< condition, Block
    With, ///< expression, Block
    Exit, ///< .name is the keyword: Do, For, Sub, Function or Property
    OnErrorResumeNext,
    OnErrorGoTo0,
    Stop,
};

enum class Operator : std::uint8_t {
    None,
    Imp,
    Eqv,
    Xor,
    Or,
    And,
    Not,
    Equal,
    NotEqual,
    Less,
    Greater,
    LessEqual,
    GreaterEqual,
    Is,
    Concatenate,
    Add,
    Subtract,
    Mod,
    IntegerDivide,
    Multiply,
    Divide,
    Negate,
    Plus,
    Power,
};

/// The meaning of a bit depends on the kind of node.
namespace flag {
inline constexpr unsigned Public = 1, Private = 2, Default = 4, IsArray = 8; // declarations
inline constexpr unsigned ByVal = 1, ByRef = 2; // Parameter
inline constexpr unsigned SingleLine = 1; // If
inline constexpr unsigned Until = 1, AtEnd = 2; // DoLoop
inline constexpr unsigned Preserve = 1; // ReDim
inline constexpr unsigned WithCall = 1; // CallStatement
} // namespace flag

/// 0 is no node.
using NodeId = std::uint32_t;

struct Node {
    NodeKind kind{};
    Operator op = Operator::None;
    std::uint16_t flags : 6 = 0;
    std::uint16_t depth : 10 = 1; ///< height of the subtree, with this node
    std::uint32_t start = 0;
    std::uint32_t end = 0;
    NameId name
        = NameId::None; ///< for nodes that have one: Name, Member, New, Identifier and the declarations
    NodeId firstChild = 0;
    NodeId nextSibling = 0;

    [[nodiscard]] TextRange range() const { return {start, end}; }
    [[nodiscard]] bool has(unsigned bit) const { return (flags & bit) != 0; }
};

class Tree {
public:
    class Children {
    public:
        class Iterator {
        public:
            Iterator(const Tree *tree, NodeId id)
                : m_tree(tree)
                , m_id(id)
            {
            }
            NodeId operator*() const { return m_id; }
            Iterator &operator++()
            {
                m_id = (*m_tree)[m_id].nextSibling;
                return *this;
            }
            bool operator!=(const Iterator &other) const { return m_id != other.m_id; }

        private:
            const Tree *m_tree;
            NodeId m_id;
        };

        Children(const Tree &tree, NodeId first)
            : m_tree(&tree)
            , m_first(first)
        {
        }
        [[nodiscard]] Iterator begin() const { return {m_tree, m_first}; }
        [[nodiscard]] Iterator end() const { return {m_tree, 0}; }

    private:
        const Tree *m_tree;
        NodeId m_first;
    };

    [[nodiscard]] const Node &operator[](NodeId id) const { return m_nodes[id]; }
    [[nodiscard]] NodeId root() const { return m_root; }
    /// Node ids are below this.
    [[nodiscard]] std::size_t size() const { return m_nodes.size(); }

    /// For each over the ids of a node's children.
    [[nodiscard]] Children children(NodeId id) const { return {*this, m_nodes[id].firstChild}; }
    /// The n-th child from 0; 0 where there are fewer.
    [[nodiscard]] NodeId child(NodeId id, unsigned n) const;
    [[nodiscard]] NodeId lastChild(NodeId id) const;

private:
    friend class TreeBuilder;
    std::vector<Node> m_nodes{Node{}};
    NodeId m_root = 0;
};

/// Finds line numbers. Built when the first one is requested.
class LineIndex {
public:
    explicit LineIndex(std::string_view text);
    /// From 1. CR, LF and CRLF each end a line.
    [[nodiscard]] Offset lineAt(Offset offset) const;
    [[nodiscard]] Offset lineStart(Offset line) const { return m_starts[static_cast<std::size_t>(line - 1)]; }
    [[nodiscard]] Offset lineCount() const { return static_cast<Offset>(m_starts.size()); }

private:
    std::vector<Offset> m_starts;
};

/// A parsed text. The text is owned by the caller and must outlive this.
struct ParsedScript {
    std::string_view text;
    Tree tree;
    NameTable names;
    std::vector<Offset> unitStarts; ///< where compilation units begin, ascending
    std::vector<TextRange> comments; ///< ascending, from ' or Rem to the end of the line
    std::vector<Finding> findings; ///< of lexer and parser, ascending by start
    bool complete = true; ///< false: nested too deeply, the rest was not parsed

    [[nodiscard]] std::string_view textOf(TextRange range) const
    {
        return text.substr(static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.length()));
    }
    [[nodiscard]] std::string_view textOf(NodeId id) const { return textOf(tree[id].range()); }
    /// The range of the name itself: of a Name, Member, New, Identifier, or a declaration.
    [[nodiscard]] TextRange nameRange(NodeId id) const;
};

} // namespace kevra::script
