// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/page_rules.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace kevra::page {
namespace {

/// A copy is made of a template before it is seen; of noscript and what it stands for, one is there.
constexpr std::array<std::string_view, 2> apart{"noscript", "template"};

/// For each element whether it is inside of one of these.
[[nodiscard]] std::vector<bool> setApart(const std::vector<Element> &elements)
{
    std::vector<bool> isApart(elements.size());
    for (std::size_t i = 0; i < elements.size(); ++i)
        isApart[i] = isApart[elements[i].parent] || std::ranges::find(apart, elements[i].tag) != apart.end();
    return isApart;
}

} // namespace

void checkIds(const PageModel &page, Findings &findings)
{
    if (page.isAssembled())
        return;
    const auto &elements = page.tree.elements();
    const auto isApart = setApart(elements);
    std::unordered_map<std::string_view, TextRange> first;
    for (const auto i : page.tree.byPlace()) {
        const auto *id = isApart[i] ? nullptr : elements[i].find("id");
        if (id == nullptr || id->value.empty() || page.isOpen(id->valueRange))
            continue;
        const auto [known, isNew] = first.try_emplace(id->value, id->valueRange);
        if (!isNew)
            findings.push_back({script::Rule::DuplicateId, id->valueRange,
                "The id \"" + id->value + "\" is given twice.", {{known->second, "The first one"}}, {}});
    }
}

} // namespace kevra::page
