// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/page_change.h"

#include "page/page_difference.h"
#include "script/markup.h"

#include <algorithm>
#include <array>

namespace kevra::page {
namespace {

/// Their attributes go to elements that there are already.
constexpr std::array<std::string_view, 4> pageTags{"html", "head", "body", "frameset"};

constexpr int maxCandidates = 12;

[[nodiscard]] std::string_view part(const MarkedPage &page, TextRange range)
{
    return std::string_view(page.plain())
        .substr(static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.length()));
}

[[nodiscard]] bool hasPageTag(std::string_view html)
{
    for (auto at = html.find('<'); at != html.npos; at = html.find('<', at + 1)) {
        // The name alone: without a '>' the tag would go on to the end of the page, each time.
        auto rest = html.substr(at + 1);
        rest.remove_prefix(rest.starts_with('/') ? 1 : 0);
        const auto tag = rest.substr(0, rest.find_first_of(" \t\r\n\f>/<"));
        if (std::ranges::any_of(pageTags, [&](std::string_view name) { return script::sameWord(tag, name); }))
            return true;
    }
    return false;
}

[[nodiscard]] Offset contentEnd(const Element &element)
{
    return element.endTag.empty() ? element.whole.end : element.endTag.start;
}

using Elements = std::vector<Element>;

/// Of the element and all below it, which follow one another.
[[nodiscard]] std::size_t endOfSubtree(const Elements &elements, std::size_t index)
{
    auto end = index + 1;
    while (end < elements.size() && elements[end].parent >= index)
        ++end;
    return end;
}

[[nodiscard]] std::vector<std::size_t> childrenOf(const Elements &elements, std::size_t index)
{
    std::vector<std::size_t> children;
    const auto end = endOfSubtree(elements, index);
    for (auto child = index + 1; child < end; child = endOfSubtree(elements, child))
        children.push_back(child);
    return children;
}

/// The children of one element that are others, with all below them: indexes of elements.
struct Replaced {
    std::size_t oldFirst, oldEnd, newFirst, newEnd;
};

class Search {
public:
    Search(const MarkedPage &before, const MarkedPage &after)
        : m_before(before)
        , m_after(after)
        , m_old(before.tree().elements())
        , m_new(after.tree().elements())
        , m_difference(differenceOf(before, after))
    {
    }

    [[nodiscard]] std::optional<PageChange> run() const;

private:
    /// How many children at the start and at the end of an element are the same, away from the difference.
    struct Kept {
        std::ptrdiff_t first, last;
    };

    [[nodiscard]] Kept keptChildren(
        const std::vector<std::size_t> &old, const std::vector<std::size_t> &now) const;
    [[nodiscard]] std::optional<std::size_t> oldOf(std::size_t element) const;
    [[nodiscard]] std::optional<PageChange> changeIn(std::size_t oldParent, std::size_t newParent) const;
    [[nodiscard]] bool holdsDifference(const PageChange &change, std::size_t parent) const;
    [[nodiscard]] bool isSame(const Element &old, const Element &now) const;
    [[nodiscard]] bool othersAreSame(const Replaced &replaced) const;
    [[nodiscard]] bool standsAlone(
        const Replaced &replaced, std::size_t parent, const PageChange &change) const;

    const MarkedPage &m_before;
    const MarkedPage &m_after;
    const Elements &m_old;
    const Elements &m_new;
    Difference m_difference;
};

bool Search::isSame(const Element &old, const Element &now) const
{
    return old.tag == now.tag && m_difference.leads(old.startTag, now.startTag)
        && m_difference.leads(old.whole, now.whole) && m_difference.leads(old.endTag, now.endTag);
}

/// The same element of the old page, when the difference is within both and what they hold can be replaced.
std::optional<std::size_t> Search::oldOf(std::size_t element) const
{
    const auto &now = m_new[element];
    if (now.startTag.empty() || now.startTag.end > m_difference.after.start
        || contentEnd(now) < m_difference.after.end || !holdsFlow(now.tag))
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

/// Compares a stretch parsed by itself with what was made of it within the page.
class Standalone {
public:
    Standalone(const MarkedPage &page, const PageChange &change, std::size_t firstElement, std::size_t parent)
        : m_page(page)
        , m_stretch(change.after)
        , m_elements(firstElement)
        , m_parent(parent)
    {
        const std::string before = page.isInQuirksMode() ? "<body>" : "<!DOCTYPE html><body>";
        m_alone = parsePage(before + std::string(part(page, m_stretch)));
        m_shift = m_stretch.start - std::ssize(before);
        const auto body = std::ranges::find(m_alone.elements, "body", &Element::tag);
        m_first = static_cast<std::size_t>(body - m_alone.elements.begin()) + 1;
    }

    [[nodiscard]] bool hasSameElements(std::size_t count) const
    {
        if (m_alone.elements.size() - m_first != count)
            return false;
        for (std::size_t i = 0; i < count; ++i) {
            const auto &a = m_alone.elements[m_first + i];
            const auto &b = m_page.tree().elements()[m_elements + i];
            if (a.tag != b.tag || moved(a.startTag) != b.startTag || moved(a.endTag) != b.endTag
                || moved(a.parent) != b.parent)
                return false;
        }
        return true;
    }
    [[nodiscard]] bool hasSameTexts() const
    {
        auto text = m_alone.texts.begin();
        for (const auto &place : m_page.texts()) {
            if (place.range.empty() || place.range.start < m_stretch.start || place.range.end > m_stretch.end)
                continue;
            if (text == m_alone.texts.end() || moved(text->range) != place.range
                || moved(text->parent) != place.parent)
                return false;
            ++text;
        }
        return text == m_alone.texts.end();
    }

private:
    [[nodiscard]] TextRange moved(TextRange range) const
    {
        return range.empty() ? TextRange{} : TextRange{range.start + m_shift, range.end + m_shift};
    }
    [[nodiscard]] std::size_t moved(std::size_t element) const
    {
        return element < m_first ? m_parent : element - m_first + m_elements;
    }

    const MarkedPage &m_page;
    TextRange m_stretch;
    std::size_t m_elements; ///< the first of the stretch in the page
    std::size_t m_parent;
    ParsedPage m_alone;
    Offset m_shift = 0;
    std::size_t m_first = 0; ///< element of m_alone
};

bool Search::standsAlone(const Replaced &replaced, std::size_t parent, const PageChange &change) const
{
    const Standalone alone(m_after, change, replaced.newFirst, parent);
    return alone.hasSameElements(replaced.newEnd - replaced.newFirst) && alone.hasSameTexts();
}

/// What follows the last element of a body can belong to it from outside.
bool Search::holdsDifference(const PageChange &change, std::size_t parent) const
{
    return change.before.start <= m_difference.before.start && change.before.end >= m_difference.before.end
        && (change.next >= 0 || m_new[parent].tag != "body");
}

Search::Kept Search::keptChildren(
    const std::vector<std::size_t> &old, const std::vector<std::size_t> &now) const
{
    const auto isBefore = [&](std::size_t a, std::size_t b) {
        return !m_old[a].startTag.empty() && m_old[a].whole.end <= m_difference.before.start
            && isSame(m_old[a], m_new[b]);
    };
    const auto isAfter = [&](std::size_t a, std::size_t b) {
        return !m_old[a].startTag.empty() && m_old[a].whole.start >= m_difference.before.end
            && isSame(m_old[a], m_new[b]);
    };
    const auto first = std::ranges::mismatch(old, now, isBefore).in1 - old.begin();
    const auto limit = std::min(std::ssize(old), std::ssize(now)) - first;
    const auto last
        = std::mismatch(old.rbegin(), old.rbegin() + limit, now.rbegin(), isAfter).first - old.rbegin();
    return {first, last};
}

std::optional<PageChange> Search::changeIn(std::size_t oldParent, std::size_t newParent) const
{
    const auto old = childrenOf(m_old, oldParent);
    const auto now = childrenOf(m_new, newParent);
    const auto [first, last] = keptChildren(old, now);
    PageChange change;
    change.parent = m_new[newParent].startTag.start;
    change.before = {m_old[oldParent].startTag.end, contentEnd(m_old[oldParent])};
    Replaced replaced{
        oldParent + 1, endOfSubtree(m_old, oldParent), newParent + 1, endOfSubtree(m_new, newParent)};
    if (first > 0) {
        const auto previous = *(old.begin() + first - 1);
        change.previous = m_old[previous].startTag.start;
        change.before.start = m_old[previous].whole.end;
        replaced.oldFirst = endOfSubtree(m_old, previous);
        replaced.newFirst = endOfSubtree(m_new, *(now.begin() + first - 1));
    }
    if (last > 0) {
        replaced.oldEnd = *(old.end() - last);
        replaced.newEnd = *(now.end() - last);
        change.next = change.before.end = m_old[replaced.oldEnd].startTag.start;
    }
    change.after = {change.before.start, change.before.end + m_difference.growth()};
    if (!holdsDifference(change, newParent) || hasPageTag(part(m_before, change.before))
        || hasPageTag(part(m_after, change.after)) || !othersAreSame(replaced)
        || !standsAlone(replaced, newParent, change))
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
