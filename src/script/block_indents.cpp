// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/block_indents.h"

#include <algorithm>

namespace kevra::script {

namespace {

/// How many blocks are searched, so that a text full of faults stays cheap.
constexpr std::size_t maxSearched = 2000;

} // namespace

std::optional<std::string_view> indentAt(std::string_view text, Offset offset)
{
    const auto end = static_cast<std::size_t>(offset);
    auto start = end;
    while (start > 0 && (text[start - 1] == ' ' || text[start - 1] == '\t'))
        --start;
    if (start > 0 && text[start - 1] != '\n' && text[start - 1] != '\r')
        return std::nullopt;
    return text.substr(start, end - start);
}

void BlockIndents::note(std::string_view text, BlockKind kind, TextRange head, TextRange end)
{
    const auto headIndent = indentAt(text, head.start);
    const auto endIndent = indentAt(text, end.start);
    if (headIndent && endIndent && *headIndent != *endIndent)
        m_closed.push_back({kind, head, end, *headIndent, *endIndent});
}

const BlockIndents::Closed *BlockIndents::withoutEnd(std::string_view text, BlockKind kind, Offset head) const
{
    const auto indent = indentAt(text, head);
    if (!indent)
        return nullptr;
    const Closed *found = nullptr;
    auto expected = *indent;
    const auto first = m_closed.size() - std::min(m_closed.size(), maxSearched);
    for (auto at = m_closed.size(); at > first; --at) {
        const auto &closed = m_closed[at - 1];
        const auto outer = found != nullptr ? found->head.start : head;
        if (closed.kind != kind || closed.endIndent != expected || closed.head.start <= outer)
            continue;
        found = &closed;
        expected = closed.headIndent;
    }
    return found;
}

const BlockIndents::Closed *BlockIndents::withSurplusEnd(
    std::string_view text, BlockKind kind, Offset end) const
{
    const auto indent = indentAt(text, end);
    if (!indent)
        return nullptr;
    const Closed *found = nullptr;
    auto expected = *indent;
    const auto first = m_closed.size() - std::min(m_closed.size(), maxSearched);
    for (auto at = m_closed.size(); at > first; --at) {
        const auto &closed = m_closed[at - 1];
        if (closed.kind != kind || closed.headIndent != expected
            || closed.endIndent.size() <= expected.size())
            continue;
        found = &closed;
        expected = closed.endIndent;
    }
    return found;
}

} // namespace kevra::script
