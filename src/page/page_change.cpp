// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/page_change.h"

#include "script/markup.h"

#include <algorithm>
#include <array>

namespace kevra::page {
namespace {

/// What stands in them is parsed as in the body of a page.
constexpr std::array<std::string_view, 44> flowElements{"a", "abbr", "address", "article", "aside", "b",
    "blockquote", "body", "center", "cite", "code", "dd", "del", "details", "div", "dl", "dt", "em",
    "fieldset", "figcaption", "figure", "font", "footer", "h1", "h2", "h3", "h4", "h5", "h6", "header", "i",
    "ins", "kbd", "li", "main", "nav", "ol", "p", "section", "small", "span", "strong", "td", "ul"};

/// Their attributes go to elements that there are already.
constexpr std::array<std::string_view, 4> pageTags{"html", "head", "body", "frameset"};

constexpr int maxCandidates = 12;

/// Two versions of a text: they differ in the ranges and nowhere else.
struct Difference {
    TextRange before;
    TextRange after;

    [[nodiscard]] Offset growth() const { return after.end - before.end; }
    /// Whether a place of the old text is now at `now`.
    [[nodiscard]] bool leads(Offset place, Offset now) const
    {
        return (place <= before.start && now == place) || (place >= before.end && now == place + growth());
    }
    [[nodiscard]] bool leads(TextRange range, TextRange now) const
    {
        return range.empty() ? now.empty() : leads(range.start, now.start) && leads(range.end, now.end);
    }
};

[[nodiscard]] Difference differenceOf(std::string_view before, std::string_view after)
{
    const auto [a, b] = std::ranges::mismatch(before, after);
    const auto start = a - before.begin();
    const auto limit = std::min(std::ssize(before), std::ssize(after)) - start;
    Offset same = 0;
    while (same < limit && before[before.size() - 1 - same] == after[after.size() - 1 - same])
        ++same;
    return {{start, std::ssize(before) - same}, {start, std::ssize(after) - same}};
}

/// A server part that is another one counts as a whole.
void takeServerParts(const MarkedPage &before, const MarkedPage &after, Difference &difference)
{
    const auto &old = before.serverParts();
    const auto &now = after.serverParts();
    const auto same = [&](const ServerPart &a, const ServerPart &b) {
        return a.isOutput == b.isOutput && difference.leads(a.range, b.range);
    };
    const auto limit = std::min(old.size(), now.size());
    std::size_t first = 0;
    while (first < limit && same(old[first], now[first]))
        ++first;
    std::size_t last = 0;
    while (last < limit - first && same(old[old.size() - 1 - last], now[now.size() - 1 - last]))
        ++last;
    Offset start = difference.before.start;
    Offset rest = std::ssize(before.plain()) - difference.before.end;
    const auto take = [&](const std::vector<ServerPart> &parts, Offset length) {
        for (auto i = first; i < parts.size() - last; ++i) {
            start = std::min(start, parts[i].range.start);
            rest = std::min(rest, length - parts[i].range.end);
        }
    };
    take(old, std::ssize(before.plain()));
    take(now, std::ssize(after.plain()));
    difference = {{start, std::ssize(before.plain()) - rest}, {start, std::ssize(after.plain()) - rest}};
}

[[nodiscard]] Offset contentEnd(const Element &element)
{
    return element.endTag.empty() ? element.whole.end : element.endTag.start;
}

/// A child element or the elements below one: in the order of the tree they follow one another.
[[nodiscard]] std::size_t endOfSubtree(const std::vector<Element> &elements, std::size_t index)
{
    auto end = index + 1;
    while (end < elements.size() && elements[end].parent >= index)
        ++end;
    return end;
}

[[nodiscard]] std::vector<std::size_t> childrenOf(const std::vector<Element> &elements, std::size_t index)
{
    std::vector<std::size_t> children;
    const auto end = endOfSubtree(elements, index);
    for (auto child = index + 1; child < end; child = endOfSubtree(elements, child))
        children.push_back(child);
    return children;
}

class Search {
public:
    Search(const MarkedPage &before, const MarkedPage &after)
        : m_before(before)
        , m_after(after)
        , m_old(before.tree().elements())
        , m_new(after.tree().elements())
        , m_difference(differenceOf(before.html(), after.html()))
    {
        takeServerParts(before, after, m_difference);
    }

    [[nodiscard]] std::optional<PageChange> run() const;

private:
    struct Replaced {
        std::size_t oldFirst, oldEnd, newFirst, newEnd; ///< elements
    };

    [[nodiscard]] std::optional<std::size_t> oldOf(std::size_t element) const;
    [[nodiscard]] std::optional<PageChange> changeIn(std::size_t oldParent, std::size_t newParent) const;
    [[nodiscard]] bool isSame(const Element &old, const Element &now) const;
    [[nodiscard]] bool othersAreSame(const Replaced &replaced) const;
    [[nodiscard]] bool standsAlone(
        const Replaced &replaced, std::size_t parent, const PageChange &change) const;
    [[nodiscard]] static bool hasPageTag(std::string_view html);

    const MarkedPage &m_before;
    const MarkedPage &m_after;
    const std::vector<Element> &m_old;
    const std::vector<Element> &m_new;
    Difference m_difference;
};

bool Search::isSame(const Element &old, const Element &now) const
{
    return old.tag == now.tag && m_difference.leads(old.startTag, now.startTag)
        && m_difference.leads(old.whole, now.whole) && m_difference.leads(old.endTag, now.endTag);
}

/// The element of the old page with the same tag around the difference.
std::optional<std::size_t> Search::oldOf(std::size_t element) const
{
    const auto &now = m_new[element];
    if (now.startTag.empty() || now.startTag.end > m_difference.after.start
        || contentEnd(now) < m_difference.after.end
        || std::ranges::find(flowElements, now.tag) == flowElements.end())
        return std::nullopt;
    const auto old = m_before.tree().elementAt(now.startTag.start);
    if (!old || !isSame(m_old[*old], now) || contentEnd(m_old[*old]) < m_difference.before.end)
        return std::nullopt;
    return old;
}

bool Search::othersAreSame(const Replaced &replaced) const
{
    if (replaced.oldFirst != replaced.newFirst
        || m_old.size() - replaced.oldEnd != m_new.size() - replaced.newEnd)
        return false;
    for (std::size_t i = 0; i < replaced.oldFirst; ++i) {
        if (m_old[i].parent != m_new[i].parent || !isSame(m_old[i], m_new[i]))
            return false;
    }
    const auto growth = replaced.newEnd - replaced.oldEnd; // modulo the type's size
    for (auto i = replaced.oldEnd; i < m_old.size(); ++i) {
        const auto parent = m_old[i].parent < replaced.oldFirst ? m_old[i].parent : m_old[i].parent + growth;
        if (parent != m_new[i + growth].parent || !isSame(m_old[i], m_new[i + growth]))
            return false;
    }
    return true;
}

/// Whether the new children are parsed without the page around them as they are within it.
bool Search::standsAlone(const Replaced &replaced, std::size_t parent, const PageChange &change) const
{
    const auto part = std::string_view(m_after.plain())
                          .substr(static_cast<std::size_t>(change.after.start),
                              static_cast<std::size_t>(change.after.length()));
    const std::string before = m_after.isInQuirksMode() ? "<body>" : "<!DOCTYPE html><body>";
    const auto alone = parsePage(before + std::string(part));
    const auto shift = change.after.start - std::ssize(before);
    const auto moved = [shift](TextRange range) {
        return range.empty() ? TextRange{} : TextRange{range.start + shift, range.end + shift};
    };
    const auto body = std::ranges::find(alone.elements, "body", &Element::tag);
    const auto first = static_cast<std::size_t>(body - alone.elements.begin()) + 1;
    if (alone.elements.size() - first != replaced.newEnd - replaced.newFirst)
        return false;
    const auto parentOf = [&](std::size_t i) { return i < first ? parent : i - first + replaced.newFirst; };
    for (auto i = first; i < alone.elements.size(); ++i) {
        const auto &a = alone.elements[i];
        const auto &b = m_new[i - first + replaced.newFirst];
        if (a.tag != b.tag || moved(a.startTag) != b.startTag || moved(a.endTag) != b.endTag
            || parentOf(a.parent) != b.parent)
            return false;
    }
    auto text = alone.texts.begin();
    for (const auto &place : m_after.texts()) {
        const bool inside = place.range.start >= change.after.start && place.range.end <= change.after.end
            && !place.range.empty();
        if (!inside)
            continue;
        if (text == alone.texts.end() || moved(text->range) != place.range
            || parentOf(text->parent) != place.parent)
            return false;
        ++text;
    }
    return text == alone.texts.end();
}

bool Search::hasPageTag(std::string_view html)
{
    for (auto at = html.find('<'); at != html.npos; at = html.find('<', at + 1)) {
        const auto tag = script::readTag(html, at);
        if (std::ranges::any_of(
                pageTags, [&](std::string_view name) { return script::sameWord(tag.name, name); }))
            return true;
    }
    return false;
}

std::optional<PageChange> Search::changeIn(std::size_t oldParent, std::size_t newParent) const
{
    const auto old = childrenOf(m_old, oldParent);
    const auto now = childrenOf(m_new, newParent);
    const auto kept = [&](std::size_t a, std::size_t b) {
        return !m_old[a].startTag.empty() && isSame(m_old[a], m_new[b]);
    };
    const auto limit = std::min(old.size(), now.size());
    std::size_t first = 0;
    while (first < limit && m_old[old[first]].whole.end <= m_difference.before.start
        && kept(old[first], now[first]))
        ++first;
    std::size_t last = 0;
    while (last < limit - first && m_old[old[old.size() - 1 - last]].whole.start >= m_difference.before.end
        && kept(old[old.size() - 1 - last], now[now.size() - 1 - last]))
        ++last;
    PageChange change;
    change.parent = m_new[newParent].startTag.start;
    change.before = {m_old[oldParent].startTag.end, contentEnd(m_old[oldParent])};
    Replaced replaced{
        oldParent + 1, endOfSubtree(m_old, oldParent), newParent + 1, endOfSubtree(m_new, newParent)};
    if (first > 0) {
        const auto &previous = m_old[old[first - 1]];
        change.previous = previous.startTag.start;
        change.before.start = previous.whole.end;
        replaced.oldFirst = endOfSubtree(m_old, old[first - 1]);
        replaced.newFirst = endOfSubtree(m_new, now[first - 1]);
    }
    if (last > 0) {
        const auto &next = m_old[old[old.size() - last]];
        change.next = next.startTag.start;
        change.before.end = next.startTag.start;
        replaced.oldEnd = old[old.size() - last];
        replaced.newEnd = now[now.size() - last];
    }
    change.after = {change.before.start, change.before.end + m_difference.growth()};
    // What follows the last element of a body can belong to it from outside.
    const bool holds = change.before.start <= m_difference.before.start
        && change.before.end >= m_difference.before.end && (last > 0 || m_new[newParent].tag != "body");
    const auto part = [](const MarkedPage &page, TextRange range) {
        return std::string_view(page.plain())
            .substr(static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.length()));
    };
    if (!holds || hasPageTag(part(m_before, change.before)) || hasPageTag(part(m_after, change.after))
        || !othersAreSame(replaced) || !standsAlone(replaced, newParent, change))
        return std::nullopt;
    return change;
}

std::optional<PageChange> Search::run() const
{
    auto element = m_after.tree().elementAt(std::max<Offset>(m_difference.after.start - 1, 0));
    for (int i = 0; element && i < maxCandidates; ++i) {
        if (const auto old = oldOf(*element)) {
            if (auto change = changeIn(*old, *element))
                return change;
        }
        if (m_new[*element].parent == *element)
            break;
        element = m_new[*element].parent;
    }
    return std::nullopt;
}

} // namespace

std::optional<PageChange> changeBetween(const MarkedPage &before, const MarkedPage &after)
{
    if (before.isInQuirksMode() != after.isInQuirksMode())
        return std::nullopt;
    return Search(before, after).run();
}

} // namespace kevra::page
