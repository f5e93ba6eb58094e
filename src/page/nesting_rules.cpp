// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/page_rules.h"
#include "page/tag_kinds.h"
#include "page/tag_scanner.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <unordered_set>

namespace kevra::page {
namespace {

using script::Rule;
using script::Tag;

constexpr std::size_t furthest = 1000; ///< open or crossed elements that a tag is compared with
/// Their end tags, wherever they are, end nothing.
constexpr std::array<std::string_view, 4> frames{"body", "frameset", "head", "html"};

[[nodiscard]] std::string lowerCase(std::string_view name)
{
    std::string lower(name);
    std::ranges::transform(
        lower, lower.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

struct Open {
    TagId id;
    std::string_view name;
    TextRange tag;
    bool hasSlash;
};

/// An element that was open when another one around it ended.
struct Crossed {
    Open element;
    TextRange by; ///< the tag that did it
};

class NestingCheck {
public:
    NestingCheck(const PageModel &page, Findings &findings)
        : m_page(page)
        , m_findings(findings)
    {
    }

    void run();

private:
    void start(const Tag &tag, TagId id);
    void end(const Tag &tag, TagId id);
    void unmatched(const Tag &tag, TagId id);
    /// Ends the element at `index` and what is open in it.
    void close(std::size_t index, const Tag &by);
    [[nodiscard]] bool isHtmlsOwn(const Tag &tag, TagId id) const;
    [[nodiscard]] std::size_t lookedThrough() const
    {
        return m_open.size() - std::min(m_open.size(), furthest);
    }
    void addUnclosed(const Open &element, TextRange by);
    void add(Rule rule, std::string_view name, TextRange place, std::string what,
        std::vector<script::Related> related);
    void noteWrittenByScripts();

    const PageModel &m_page;
    Findings &m_findings;
    std::vector<Open> m_open;
    std::size_t m_foreign = 0; ///< of them, those that hold another language
    std::vector<Crossed> m_crossed;
    TextRange m_endedParagraph; ///< the last tag that ended a paragraph
    std::unordered_set<std::string> m_written; ///< names of tags that scripts write
};

/// document.write("</div>"): the place is unknown.
void NestingCheck::noteWrittenByScripts()
{
    for (const auto &element : m_page.tree.elements()) {
        if (element.tag != "script" || element.startTag.empty())
            continue;
        const auto script = m_page.text({element.startTag.end, element.whole.end});
        if (script.find("document.write") == std::string_view::npos)
            continue;
        for (auto at = script.find('<'); at != std::string_view::npos; at = script.find('<', at + 1)) {
            auto rest = script.substr(at + 1);
            rest.remove_prefix(std::min(rest.find_first_not_of("\\/"), rest.size()));
            m_written.insert(lowerCase(rest.substr(0, rest.find_first_of(" \t\r\n/<>\\\"'"))));
        }
    }
}

/// Names with a colon belong to other languages.
bool NestingCheck::isHtmlsOwn(const Tag &tag, TagId id) const
{
    return tag.name.find(':') == std::string_view::npos
        && std::ranges::none_of(frames, [&](auto name) { return isTag(id, name); });
}

void NestingCheck::run()
{
    noteWrittenByScripts();
    TagScanner scanner(m_page.plain);
    while (const auto tag = scanner.next()) {
        const auto id = tagId(tag->name);
        if (!isHtmlsOwn(*tag, id))
            continue;
        if (tag->closing)
            end(*tag, id);
        else
            start(*tag, id);
    }
    for (const auto &element : m_open) {
        if (!has(element.id, TagKind::OptionalEnd))
            addUnclosed(element, {});
    }
    for (const auto &crossed : m_crossed)
        addUnclosed(crossed.element, crossed.by);
}

void NestingCheck::start(const Tag &tag, TagId id)
{
    // In an old page a table stands in a paragraph, in a new one it ends it: either is right.
    const bool closes = closesSomething(id) && !isTag(id, "table");
    for (auto i = m_open.size(); closes && i > lookedThrough(); --i) {
        const auto open = m_open[i - 1].id;
        if (closesImplied(id, open))
            close(i - 1, tag);
        else if (endsImpliedSearch(id, open))
            break;
    }
    const bool isForeign = has(id, TagKind::Foreign);
    if (has(id, TagKind::Void) || (tag.empty && (m_foreign > 0 || isForeign)))
        return;
    m_foreign += isForeign ? 1 : 0;
    m_open.push_back({id, tag.name, tag.range, tag.empty});
}

void NestingCheck::close(std::size_t index, const Tag &by)
{
    if (isTag(m_open[index].id, "p") && !by.closing)
        m_endedParagraph = by.range;
    for (auto i = index + 1; i < m_open.size(); ++i) {
        if (!has(m_open[i].id, TagKind::OptionalEnd))
            m_crossed.push_back({m_open[i], by.range});
    }
    for (; m_open.size() > index; m_open.pop_back())
        m_foreign -= has(m_open.back().id, TagKind::Foreign) ? 1 : 0;
}

void NestingCheck::end(const Tag &tag, TagId id)
{
    if (!has(id, TagKind::Void)) {
        for (auto i = m_open.size(); i > lookedThrough(); --i) {
            const auto &open = m_open[i - 1];
            if (script::sameWord(open.name, tag.name))
                return close(i - 1, tag);
            if (endsEndTagSearch(id, open.id) && has(open.id, TagKind::Scope))
                break;
        }
    }
    unmatched(tag, id);
}

void NestingCheck::unmatched(const Tag &tag, TagId id)
{
    const auto isIt
        = [&](const Crossed &crossed) { return script::sameWord(crossed.element.name, tag.name); };
    const auto last = m_crossed.rbegin() + static_cast<std::ptrdiff_t>(std::min(m_crossed.size(), furthest));
    const auto crossed = std::find_if(m_crossed.rbegin(), last, isIt);
    const auto name = lowerCase(tag.name);
    if (crossed != last) {
        add(Rule::MisnestedElement, name, tag.range,
            "The element <" + name + "> ends outside of the element it begins in.",
            {{crossed->element.tag, "It begins here"}, {crossed->by, "The element around it ends here"}});
        m_crossed.erase(std::next(crossed).base());
        return;
    }
    if (has(id, TagKind::Void))
        return add(Rule::UnmatchedEndTag, name, tag.range, "The element <" + name + "> has no end tag.", {});
    std::vector<script::Related> related;
    if (name == "p" && !m_endedParagraph.empty())
        related.push_back({m_endedParagraph, "A paragraph ends here"});
    add(Rule::UnmatchedEndTag, name, tag.range, "No element <" + name + "> is open here.",
        std::move(related));
}

void NestingCheck::addUnclosed(const Open &element, TextRange by)
{
    const auto name = lowerCase(element.name);
    auto what = "The element <" + name + "> is not closed.";
    if (element.hasSlash)
        what = "The element <" + name + "> is not closed: the slash has no meaning here.";
    std::vector<script::Related> related;
    if (!by.empty())
        related.push_back({by, "The element around it ends here"});
    add(Rule::UnclosedElement, name, element.tag, std::move(what), std::move(related));
}

void NestingCheck::add(
    Rule rule, std::string_view name, TextRange place, std::string what, std::vector<script::Related> related)
{
    if (!m_written.contains(std::string(name)))
        m_findings.push_back({rule, place, std::move(what), std::move(related), {}});
}

} // namespace

void checkNesting(const PageModel &page, Findings &findings)
{
    if (!page.isAssembled())
        NestingCheck(page, findings).run();
}

} // namespace kevra::page
