// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/page_parser.h"

#include "page/nesting_bound.h"
#include "page/parser_memory.h"
#include "script/markup.h"

#include <gumbo.h>

#include <algorithm>
#include <array>

namespace kevra::page {
namespace {

constexpr std::size_t longestPage = 32 << 20;
constexpr std::size_t memoryPerByte = 96;
constexpr std::size_t memoryAtLeast = 64 << 20;

// What the first of them makes too large of a page, the second does not.
constexpr std::array bounds{NestingBound{500, 100, 128}, NestingBound{500, 0, 128}};

void *allocate(void *memory, std::size_t size)
{
    return static_cast<ParserMemory *>(memory)->allocate(size);
}

void release(void *memory, void *piece)
{
    static_cast<ParserMemory *>(memory)->release(piece);
}

/// The tree lives in `memory`; nullptr where that is too small for it.
GumboOutput *treeOf(std::string_view page, ParserMemory &memory)
{
    GumboOptions options = kGumboDefaultOptions;
    options.allocator = allocate;
    options.deallocator = release;
    options.userdata = &memory;
    options.max_errors = 0;
    if (setjmp(memory.exhausted) != 0) // NOLINT(cert-err52-cpp)
        return nullptr;
    return gumbo_parse_with_options(&options, page.data(), page.size());
}

/// Takes a tree over without recursion: it may be deep.
class Conversion {
public:
    explicit Conversion(std::string_view page)
        : m_page(page)
    {
    }

    ParsedPage run(const GumboOutput &output)
    {
        m_result.inQuirksMode = output.document->v.document.doc_type_quirks_mode == GUMBO_DOCTYPE_QUIRKS;
        m_waiting.push_back({output.root, 0});
        while (!m_waiting.empty()) {
            const auto [node, parent] = m_waiting.back();
            m_waiting.pop_back();
            if (node->type == GUMBO_NODE_ELEMENT || node->type == GUMBO_NODE_TEMPLATE)
                takeElement(*node, parent);
            else if (node->type == GUMBO_NODE_TEXT || node->type == GUMBO_NODE_WHITESPACE)
                m_result.texts.push_back({rangeOf(node->v.text.original_text), parent});
        }
        return std::move(m_result);
    }

private:
    struct Waiting {
        const GumboNode *node;
        std::size_t parent;
    };

    /// Empty for what does not come from the page.
    [[nodiscard]] TextRange rangeOf(GumboStringPiece piece) const
    {
        const auto *end = m_page.data() + m_page.size();
        if (piece.data == nullptr || piece.data < m_page.data() || piece.data > end)
            return {};
        const auto start = piece.data - m_page.data();
        return {start, std::min(start + static_cast<Offset>(piece.length), std::ssize(m_page))};
    }

    void takeElement(const GumboNode &node, std::size_t parent);
    void takeAttributes(const GumboElement &from, Element &element) const;
    [[nodiscard]] TextRange startTagOf(const GumboNode &node) const;
    [[nodiscard]] TextRange endTagOf(const GumboElement &element) const;
    [[nodiscard]] std::string_view writtenName(GumboStringPiece tag) const;

    std::string_view m_page;
    ParsedPage m_result;
    std::vector<Waiting> m_waiting;
};

std::string_view Conversion::writtenName(GumboStringPiece tag) const
{
    gumbo_tag_from_original_text(&tag);
    return {tag.data, tag.length};
}

/// Copies that the parser makes of an element have the place of the original.
TextRange Conversion::startTagOf(const GumboNode &node) const
{
    constexpr unsigned supplied = GUMBO_INSERTION_BY_PARSER | GUMBO_INSERTION_CONVERTED_FROM_END_TAG
        | GUMBO_INSERTION_FROM_ISINDEX | GUMBO_INSERTION_RECONSTRUCTED_FORMATTING_ELEMENT
        | GUMBO_INSERTION_ADOPTION_AGENCY_CLONED;
    const auto &tag = node.v.element.original_tag;
    const auto range = rangeOf(tag);
    const bool isTag = range.length() > 2 && tag.data[0] == '<' && tag.data[1] != '/';
    return (node.parse_flags & supplied) == 0 && isTag ? range : TextRange{};
}

/// The library also names the end tag of an outer element that closed this one.
TextRange Conversion::endTagOf(const GumboElement &element) const
{
    const auto range = rangeOf(element.original_end_tag);
    const bool isEndTag = range.length() > 2 && element.original_end_tag.data[1] == '/';
    if (!isEndTag
        || !script::sameWord(writtenName(element.original_tag), writtenName(element.original_end_tag)))
        return {};
    return range;
}

std::string lowerCase(std::string_view name)
{
    std::string lower(name);
    for (auto &c : lower)
        c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 0x20 : c);
    return lower;
}

void Conversion::takeAttributes(const GumboElement &from, Element &element) const
{
    element.attributes.reserve(from.attributes.length);
    for (unsigned i = 0; i < from.attributes.length; ++i) {
        const auto &attribute = *static_cast<const GumboAttribute *>(from.attributes.data[i]);
        auto value = rangeOf(attribute.original_value);
        const char quote = value.length() < 2 ? ' ' : attribute.original_value.data[0];
        if (quote == '"' || quote == '\'')
            value = {value.start + 1, value.end - 1};
        element.attributes.push_back(
            {attribute.name, attribute.value, rangeOf(attribute.original_name), value});
    }
}

void Conversion::takeElement(const GumboNode &node, std::size_t parent)
{
    const auto &from = node.v.element;
    const auto index = m_result.elements.size();
    auto &element = m_result.elements.emplace_back();
    element.parent = parent;
    element.tag = from.tag == GUMBO_TAG_UNKNOWN ? lowerCase(writtenName(from.original_tag))
                                                : gumbo_normalized_tagname(from.tag);
    element.startTag = startTagOf(node);
    takeAttributes(from, element);
    if (!element.startTag.empty()) {
        element.endTag = endTagOf(from);
        const auto closed = std::min(static_cast<Offset>(from.end_pos.offset), std::ssize(m_page));
        const auto end = element.endTag.empty() ? closed : element.endTag.end;
        element.whole = {element.startTag.start, std::max(end, element.startTag.end)};
    }
    for (auto i = from.children.length; i-- > 0;)
        m_waiting.push_back({static_cast<const GumboNode *>(from.children.data[i]), index});
}

} // namespace

ParsedPage parsePage(std::string page)
{
    page.resize(std::min(page.size(), longestPage));
    for (const auto &bound : bounds) {
        applyBound(page, bound);
        ParserMemory memory(memoryAtLeast + memoryPerByte * page.size());
        if (const auto *output = treeOf(page, memory); output != nullptr && output->root != nullptr)
            return Conversion(page).run(*output);
    }
    ParsedPage empty;
    empty.elements.emplace_back().tag = "html";
    return empty;
}

} // namespace kevra::page
