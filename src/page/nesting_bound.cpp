// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/nesting_bound.h"

#include "page/tag_kinds.h"
#include "page/tag_scanner.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace kevra::page {
namespace {

constexpr std::size_t furthestMatch = 512; ///< open elements that an end tag is compared with

struct Open {
    TagId tag;
    std::size_t name; ///< of what HTML does not know
    bool dropped; ///< its start tag was overwritten
    std::size_t formattingOutside; ///< of an element that keeps formatting to itself
};

/// A number for the name of what HTML does not know: an end tag of another name ends nothing.
[[nodiscard]] std::size_t numberOf(std::string_view name, TagId id)
{
    if (id != TagId{})
        return 0;
    std::string lower(name);
    for (auto &c : lower)
        c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 0x20 : c);
    return std::hash<std::string>{}(lower);
}

/// A model of what is open that is never less deep than the parser's by much.
class Bounding {
public:
    Bounding(std::string &page, const NestingBound &bound)
        : m_page(page)
        , m_bound(bound)
    {
    }

    void run();

private:
    void start(const script::Tag &tag, TagId id);
    void end(const script::Tag &tag, TagId id);
    void dropAttributes(const script::Tag &tag);
    void closeImplied(TagId id);
    void closeTo(std::size_t size);
    void blank(Offset start, Offset end) { std::fill(m_page.begin() + start, m_page.begin() + end, ' '); }

    std::string &m_page;
    const NestingBound &m_bound;
    std::vector<Open> m_open;
    std::size_t m_formatting = 0;
    std::size_t m_dropped = 0;
    std::size_t m_foreign = 0; ///< open elements that hold another language
};

void Bounding::run()
{
    TagScanner scanner(m_page);
    while (const auto tag = scanner.next()) {
        const auto id = tagId(tag->name);
        if (tag->closing)
            end(*tag, id);
        else if (scanner.holdsTags())
            blank(tag->range.start, tag->range.end); // a parser may take it either way
        else
            start(*tag, id);
    }
}

void Bounding::dropAttributes(const script::Tag &tag)
{
    if (tag.attributes.size() <= m_bound.attributes)
        return;
    blank(tag.attributes[m_bound.attributes].name.data() - m_page.data(), tag.range.end - 1);
}

/// What the tag closes without an end tag for it.
void Bounding::closeImplied(TagId id)
{
    if (!closesSomething(id))
        return;
    for (auto i = m_open.size(); i > 0 && m_open.size() - i < furthestMatch; --i) {
        const auto tag = m_open[i - 1].tag;
        if (closesImplied(id, tag))
            closeTo(i - 1);
        else if (endsImpliedSearch(id, tag))
            return;
    }
}

void Bounding::closeTo(std::size_t size)
{
    while (m_open.size() > size) {
        if (has(m_open.back().tag, TagKind::Scope))
            m_formatting = m_open.back().formattingOutside;
        m_dropped -= m_open.back().dropped ? 1 : 0;
        m_foreign -= has(m_open.back().tag, TagKind::Foreign) ? 1 : 0;
        m_open.pop_back();
    }
}

void Bounding::start(const script::Tag &tag, TagId id)
{
    dropAttributes(tag);
    closeImplied(id);
    if (has(id, TagKind::Void) || (tag.empty && m_foreign > 0))
        return;
    const auto depth = m_open.size() - m_dropped + m_formatting;
    if (has(id, TagKind::Formatting)) {
        if (depth >= m_bound.depth || m_formatting >= m_bound.formatting)
            blank(tag.range.start, tag.range.end);
        else
            ++m_formatting;
        return;
    }
    const auto name = numberOf(tag.name, id); // before it is overwritten
    const bool dropped = depth >= m_bound.depth && !isRawText(tag.name);
    if (dropped)
        blank(tag.range.start, tag.range.end);
    m_dropped += dropped ? 1 : 0;
    m_foreign += has(id, TagKind::Foreign) ? 1 : 0;
    m_open.push_back({id, name, dropped, m_formatting});
}

void Bounding::end(const script::Tag &tag, TagId id)
{
    if (has(id, TagKind::Formatting)) {
        m_formatting -= m_formatting > 0 ? 1 : 0;
        return;
    }
    const auto name = numberOf(tag.name, id);
    for (auto i = m_open.size(); i > 0 && m_open.size() - i < furthestMatch; --i) {
        const auto &open = m_open[i - 1];
        if (open.tag == id && open.name == name) {
            if (open.dropped)
                blank(tag.range.start, tag.range.end);
            return closeTo(i - 1);
        }
        if (endsEndTagSearch(id, open.tag))
            return;
    }
}

} // namespace

void applyBound(std::string &page, const NestingBound &bound)
{
    Bounding(page, bound).run();
}

} // namespace kevra::page
