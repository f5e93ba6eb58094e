// SPDX-License-Identifier: GPL-3.0-or-later
// Grows a tree from its leaves. Private to the parser.
#pragma once

#include "script/tree.h"

#include <algorithm>

namespace kevra::script {

/// Children on their way into a node.
struct ChildList {
    NodeId first = 0;
    NodeId last = 0;
    unsigned depth = 0; ///< of the deepest
    unsigned count = 0;
};

class TreeBuilder {
public:
    explicit TreeBuilder(Tree &tree)
        : m_tree(tree)
    {
    }

    [[nodiscard]] Node &operator[](NodeId id) { return m_tree.m_nodes[id]; }
    void reserve(std::size_t nodes) { m_tree.m_nodes.reserve(nodes); }

    NodeId leaf(NodeKind kind, TextRange range, NameId name = NameId::None)
    {
        Node node;
        node.kind = kind;
        node.start = static_cast<std::uint32_t>(range.start);
        node.end = static_cast<std::uint32_t>(range.end);
        node.name = name;
        m_tree.m_nodes.push_back(node);
        return static_cast<NodeId>(m_tree.m_nodes.size() - 1);
    }

    void append(ChildList &list, NodeId id)
    {
        if (list.last == 0)
            list.first = id;
        else
            (*this)[list.last].nextSibling = id;
        list.last = id;
        list.depth = std::max<unsigned>(list.depth, (*this)[id].depth);
        ++list.count;
    }

    /// A deeper tree than maxTreeDepth cannot be represented: ask tooDeep() before.
    NodeId node(NodeKind kind, TextRange range, const ChildList &children, NameId name = NameId::None)
    {
        const auto id = leaf(kind, range, name);
        (*this)[id].firstChild = children.first;
        (*this)[id].depth = static_cast<std::uint16_t>(std::min(children.depth + 1, maxTreeDepth) & 0x3FF);
        return id;
    }

    [[nodiscard]] static bool tooDeep(const ChildList &children)
    {
        return children.depth + 1 >= maxTreeDepth;
    }
    void setRoot(NodeId id) { m_tree.m_root = id; }
    [[nodiscard]] const Tree &tree() const { return m_tree; }

private:
    Tree &m_tree;
};

} // namespace kevra::script
