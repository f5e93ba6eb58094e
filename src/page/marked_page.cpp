// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/marked_page.h"

#include <algorithm>
#include <array>

namespace kevra::page {
namespace {

/// An element there would be text, would be moved elsewhere or would change what follows.
constexpr std::array<std::string_view, 17> takesNoMark{"colgroup", "frameset", "head", "html", "optgroup",
    "option", "script", "select", "style", "table", "tbody", "template", "textarea", "tfoot", "thead",
    "title", "tr"};
constexpr std::array<std::string_view, 2> takesNoMarkInside{"math", "svg"};

[[nodiscard]] bool mayTakeMark(const std::vector<Element> &elements, std::size_t parent)
{
    const auto is
        = [](const auto &tags, const std::string &tag) { return std::ranges::find(tags, tag) != tags.end(); };
    if (is(takesNoMark, elements[parent].tag))
        return false;
    for (; elements[parent].parent != parent; parent = elements[parent].parent) {
        if (is(takesNoMarkInside, elements[parent].tag))
            return false;
    }
    return true;
}

struct Insertion {
    Offset at;
    std::string text;
};

[[nodiscard]] Offset endOfName(std::string_view html, TextRange startTag)
{
    const auto end = html.find_first_of(" \t\r\n\f/>", static_cast<std::size_t>(startTag.start) + 1);
    return std::min(static_cast<Offset>(std::min(end, html.size())), startTag.end);
}

void addOffsets(std::string_view html, std::string_view attribute, const ParsedPage &page,
    std::vector<Insertion> &insertions)
{
    for (const auto &element : page.elements) {
        if (!element.startTag.empty())
            insertions.push_back({endOfName(html, element.startTag),
                ' ' + std::string(attribute) + "=\"" + std::to_string(element.startTag.start) + '"'});
    }
}

void addMarks(
    const ParsedPage &page, const std::vector<ServerPart> &parts, std::vector<Insertion> &insertions)
{
    for (const auto &text : page.texts) {
        const auto start = [](const ServerPart &part) { return part.range.start; };
        auto part = std::ranges::lower_bound(parts, text.range.start, {}, start);
        if (part == parts.end() || part->range.end > text.range.end
            || !mayTakeMark(page.elements, text.parent))
            continue;
        for (; part != parts.end() && part->range.end <= text.range.end; ++part)
            insertions.push_back({part->range.start, std::string(serverPartMark)});
    }
}

} // namespace

MarkedPage::MarkedPage(std::string_view html)
    : m_parts(findServerParts(html))
    , m_plain(withoutServerParts(html, m_parts))
    , m_page(parsePage(m_plain))
{
}

std::string MarkedPage::text(std::string_view attribute) const
{
    std::vector<Insertion> insertions;
    if (!attribute.empty())
        addOffsets(m_plain, attribute, m_page, insertions);
    addMarks(m_page, m_parts, insertions);
    std::ranges::stable_sort(insertions, {}, &Insertion::at);
    std::string marked;
    marked.reserve(m_plain.size() + 24 * insertions.size());
    Offset at = 0;
    for (const auto &insertion : insertions) {
        marked.append(m_plain, static_cast<std::size_t>(at), static_cast<std::size_t>(insertion.at - at));
        marked += insertion.text;
        at = insertion.at;
    }
    return marked.append(m_plain, static_cast<std::size_t>(at));
}

} // namespace kevra::page
