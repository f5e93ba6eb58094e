// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/marked_page.h"

#include <algorithm>
#include <array>
#include <utility>

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

[[nodiscard]] bool isIn(Offset place, TextRange stretch)
{
    return place >= stretch.start && place < stretch.end;
}

void addOffsets(
    const MarkedPage &page, std::string_view attribute, TextRange stretch, std::vector<Insertion> &insertions)
{
    for (const auto &element : page.tree().elements()) {
        if (!element.startTag.empty() && isIn(element.startTag.start, stretch))
            insertions.push_back({endOfName(page.plain(), element.startTag),
                ' ' + std::string(attribute) + "=\"" + std::to_string(element.startTag.start) + '"'});
    }
}

void addMarks(const MarkedPage &page, TextRange stretch, std::vector<Insertion> &insertions)
{
    const auto &parts = page.serverParts();
    for (const auto &text : page.texts()) {
        const auto start = [](const ServerPart &part) { return part.range.start; };
        auto part = std::ranges::lower_bound(parts, text.range.start, {}, start);
        if (part == parts.end() || part->range.end > text.range.end || !isIn(text.range.start, stretch)
            || !mayTakeMark(page.tree().elements(), text.parent))
            continue;
        for (; part != parts.end() && part->range.end <= text.range.end; ++part)
            insertions.push_back({part->range.start, std::string(serverPartMark)});
    }
}

} // namespace

MarkedPage::MarkedPage(std::string html)
    : m_html(std::move(html))
    , m_parts(findServerParts(m_html))
    , m_plain(withoutServerParts(m_html, m_parts))
{
    auto page = parsePage(m_plain);
    m_texts = std::move(page.texts);
    m_inQuirksMode = page.inQuirksMode;
    m_tree = ElementTree(std::move(page.elements));
}

std::string MarkedPage::text(std::string_view attribute) const
{
    return text(attribute, {0, std::ssize(m_plain)});
}

std::string MarkedPage::text(std::string_view attribute, TextRange stretch) const
{
    std::vector<Insertion> insertions;
    if (!attribute.empty())
        addOffsets(*this, attribute, stretch, insertions);
    addMarks(*this, stretch, insertions);
    std::ranges::stable_sort(insertions, {}, &Insertion::at);
    std::string marked;
    marked.reserve(static_cast<std::size_t>(stretch.length()) + 24 * insertions.size());
    auto at = stretch.start;
    const auto append = [&](Offset end) {
        marked.append(m_plain, static_cast<std::size_t>(at), static_cast<std::size_t>(end - at));
        at = end;
    };
    for (const auto &insertion : insertions) {
        append(insertion.at);
        marked += insertion.text;
    }
    append(stretch.end);
    return marked;
}

} // namespace kevra::page
