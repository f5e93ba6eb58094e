// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/tree.h"

#include <algorithm>

namespace kevra::script {

NodeId Tree::child(NodeId id, unsigned n) const
{
    auto found = m_nodes[id].firstChild;
    for (; found != 0 && n > 0; --n)
        found = m_nodes[found].nextSibling;
    return found;
}

NodeId Tree::lastChild(NodeId id) const
{
    auto last = m_nodes[id].firstChild;
    while (last != 0 && m_nodes[last].nextSibling != 0)
        last = m_nodes[last].nextSibling;
    return last;
}

LineIndex::LineIndex(std::string_view text)
{
    m_starts.push_back(0);
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\n' || (text[at] == '\r' && text.substr(at + 1, 1) != "\n"))
            m_starts.push_back(static_cast<Offset>(at + 1));
    }
}

Offset LineIndex::lineAt(Offset offset) const
{
    return std::ranges::upper_bound(m_starts, offset) - m_starts.begin();
}

TextRange ParsedScript::nameRange(NodeId id) const
{
    const auto &node = tree[id];
    if (node.firstChild != 0 && tree[node.firstChild].kind == NodeKind::Identifier)
        return tree[node.firstChild].range();
    if (node.kind != NodeKind::Member && node.kind != NodeKind::New)
        return node.range();
    // The name comes last, so its spelling is found from the end of the node.
    const auto bracketed = node.end > 0 && text[node.end - 1] == ']';
    const auto length = names.spelling(node.name).size() + (bracketed ? 2 : 0);
    return {static_cast<Offset>(node.end - length), static_cast<Offset>(node.end)};
}

} // namespace kevra::script
