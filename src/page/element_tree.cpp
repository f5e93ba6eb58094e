// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/element_tree.h"

#include "page/page_parser.h"
#include "page/server_parts.h"

#include <algorithm>

namespace kevra::page {

const Attribute *Element::find(std::string_view name) const
{
    const auto found = std::ranges::find(attributes, name, &Attribute::name);
    return found == attributes.end() ? nullptr : &*found;
}

ElementTree ElementTree::parse(std::string_view html)
{
    return ElementTree(parsePage(withoutServerParts(html, findServerParts(html))).elements);
}

ElementTree::ElementTree(std::vector<Element> elements)
    : m_elements(std::move(elements))
{
    for (std::size_t i = 0; i < m_elements.size(); ++i) {
        if (!m_elements[i].startTag.empty())
            m_byPlace.push_back(i);
    }
    // Elements that the parser moves out of a table stand before it in the tree.
    std::ranges::stable_sort(m_byPlace, {}, [this](std::size_t i) { return m_elements[i].startTag.start; });
    std::vector<std::size_t> open;
    m_around.reserve(m_byPlace.size());
    for (std::size_t i = 0; i < m_byPlace.size(); ++i) {
        const auto &element = m_elements[m_byPlace[i]];
        while (!open.empty() && m_elements[m_byPlace[open.back()]].whole.end <= element.whole.start)
            open.pop_back();
        m_around.push_back(open.empty() ? i : open.back());
        open.push_back(i);
    }
}

std::optional<std::size_t> ElementTree::elementAt(Offset offset) const
{
    const auto start = [this](std::size_t i) { return m_elements[i].startTag.start; };
    const auto after = std::ranges::upper_bound(m_byPlace, offset, {}, start);
    if (after == m_byPlace.begin())
        return std::nullopt;
    for (auto at = static_cast<std::size_t>(after - m_byPlace.begin()) - 1;; at = m_around[at]) {
        if (m_elements[m_byPlace[at]].whole.end > offset)
            return m_byPlace[at];
        if (m_around[at] == at)
            return std::nullopt;
    }
}

} // namespace kevra::page
