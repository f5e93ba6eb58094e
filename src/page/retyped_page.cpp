// SPDX-License-Identifier: GPL-3.0-or-later
// A page in which only letters within a text have changed has the same elements: it need not be parsed.
#include "page/page_difference.h"

#include <algorithm>
#include <utility>

namespace kevra::page {
namespace {

constexpr Offset longestReference = 40; ///< of a character, with what could continue it

/// What can begin or end a tag, a reference to a character or a server part.
[[nodiscard]] bool isPlain(std::string_view text)
{
    using namespace std::string_view_literals;
    return text.find_first_of("<>&%?\0"sv) == text.npos;
}

[[nodiscard]] std::string_view part(const std::string &text, Offset start, Offset end)
{
    return std::string_view(text).substr(
        static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
}

/// Moves the places after a text.
class Move {
public:
    Move(Offset from, Offset growth)
        : m_from(from)
        , m_growth(growth)
    {
    }
    void operator()(TextRange &range) const
    {
        for (auto *place : {&range.start, &range.end})
            *place += *place >= m_from ? m_growth : 0;
    }
    void operator()(Element &element) const
    {
        for (auto *range : {&element.startTag, &element.endTag, &element.whole})
            (*this)(*range);
        for (auto &attribute : element.attributes) {
            (*this)(attribute.nameRange);
            (*this)(attribute.valueRange);
        }
    }

private:
    Offset m_from;
    Offset m_growth;
};

} // namespace

/// The text that holds the difference, when nothing but that text can depend on it.
const TextPlace *MarkedPage::retypedText(const std::string &html, const Difference &difference) const
{
    const auto [start, end] = difference.before;
    const auto holds = [&, start = start, end = end](const TextPlace &text) {
        return text.range.start < start && end <= text.range.end;
    };
    const auto text = std::ranges::find_if(m_texts, holds);
    if (text == m_texts.end() || !holdsFlow(m_tree.elements()[text->parent].tag))
        return nullptr;
    const auto kept = part(m_html, text->range.start, start);
    const auto near = part(m_html, std::max(text->range.start, start - longestReference), start);
    const bool ends
        = text->range.end < std::ssize(m_html) && m_html[static_cast<std::size_t>(text->range.end)] == '<';
    const bool plain = ends && isPlain(near) && isPlain(part(m_html, start, end))
        && isPlain(part(html, start, difference.after.end))
        && kept.find_first_not_of(" \t\r\n\f") != kept.npos;
    return plain && !holdsServerPart(m_parts, {start, std::max(end, start + 1)}) ? &*text : nullptr;
}

std::optional<MarkedPage> MarkedPage::retyped(std::string html) const
{
    const auto difference = differenceOf(std::string_view(m_html), std::string_view(html));
    const auto *text = retypedText(html, difference);
    if (text == nullptr)
        return std::nullopt;
    const Move move(text->range.end, difference.growth());
    MarkedPage page;
    page.m_plain = m_plain;
    page.m_plain.replace(static_cast<std::size_t>(difference.before.start),
        static_cast<std::size_t>(difference.before.length()),
        part(html, difference.after.start, difference.after.end));
    page.m_html = std::move(html);
    page.m_inQuirksMode = m_inQuirksMode;
    page.m_parts = m_parts;
    // They also stand within the text.
    for (auto &each : page.m_parts) {
        if (each.range.start >= difference.before.end)
            each.range = {each.range.start + difference.growth(), each.range.end + difference.growth()};
    }
    page.m_texts = m_texts;
    for (auto &each : page.m_texts)
        move(each.range);
    auto elements = m_tree.elements();
    std::ranges::for_each(elements, move);
    page.m_tree = ElementTree(std::move(elements));
    return page;
}

} // namespace kevra::page
