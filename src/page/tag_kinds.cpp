// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/tag_kinds.h"

#include <algorithm>
#include <array>

namespace kevra::page {
namespace {

struct Row {
    std::string_view name;
    unsigned kinds;
};

constexpr auto Void = static_cast<unsigned>(TagKind::Void);
constexpr auto Formatting = static_cast<unsigned>(TagKind::Formatting);
constexpr auto Special = static_cast<unsigned>(TagKind::Special);
constexpr auto Scope = static_cast<unsigned>(TagKind::Scope);
constexpr auto ClosesParagraph = static_cast<unsigned>(TagKind::ClosesParagraph);
constexpr auto Table = static_cast<unsigned>(TagKind::Table);
constexpr auto OptionalEnd = static_cast<unsigned>(TagKind::OptionalEnd);
constexpr auto Foreign = static_cast<unsigned>(TagKind::Foreign);

constexpr std::array rows{
    Row{"", 0}, // all others
    Row{"a", Formatting},
    Row{"address", Special | ClosesParagraph},
    Row{"applet", Special | Scope},
    Row{"area", Void | Special},
    Row{"article", Special | ClosesParagraph},
    Row{"aside", Special | ClosesParagraph},
    Row{"b", Formatting},
    Row{"base", Void | Special},
    Row{"basefont", Void | Special},
    Row{"bgsound", Void | Special},
    Row{"big", Formatting},
    Row{"blockquote", Special | ClosesParagraph},
    Row{"body", Special | OptionalEnd},
    Row{"br", Void | Special},
    Row{"button", Special},
    Row{"caption", Special | Scope | Table | OptionalEnd},
    Row{"center", Special | ClosesParagraph},
    Row{"code", Formatting},
    Row{"col", Void | Special | Table},
    Row{"colgroup", Special | Table | OptionalEnd},
    Row{"command", Void},
    Row{"dd", Special | ClosesParagraph | OptionalEnd},
    Row{"details", Special | ClosesParagraph},
    Row{"dialog", Special | ClosesParagraph},
    Row{"dir", Special | ClosesParagraph},
    Row{"div", Special | ClosesParagraph},
    Row{"dl", Special | ClosesParagraph},
    Row{"dt", Special | ClosesParagraph | OptionalEnd},
    Row{"em", Formatting},
    Row{"embed", Void | Special},
    Row{"fieldset", Special | ClosesParagraph},
    Row{"figcaption", Special | ClosesParagraph},
    Row{"figure", Special | ClosesParagraph},
    Row{"font", Formatting},
    Row{"footer", Special | ClosesParagraph},
    Row{"form", Special | ClosesParagraph},
    Row{"frame", Void | Special},
    Row{"frameset", Special},
    Row{"h1", Special | ClosesParagraph},
    Row{"h2", Special | ClosesParagraph},
    Row{"h3", Special | ClosesParagraph},
    Row{"h4", Special | ClosesParagraph},
    Row{"h5", Special | ClosesParagraph},
    Row{"h6", Special | ClosesParagraph},
    Row{"head", Special | OptionalEnd},
    Row{"header", Special | ClosesParagraph},
    Row{"hgroup", Special | ClosesParagraph},
    Row{"hr", Void | Special | ClosesParagraph},
    Row{"html", Special | Scope | OptionalEnd},
    Row{"i", Formatting},
    Row{"iframe", Special},
    Row{"image", Void},
    Row{"img", Void | Special},
    Row{"input", Void | Special},
    Row{"keygen", Void | Special},
    Row{"li", Special | ClosesParagraph | OptionalEnd},
    Row{"link", Void | Special},
    Row{"listing", Special | ClosesParagraph},
    Row{"main", Special | ClosesParagraph},
    Row{"marquee", Special | Scope},
    Row{"math", Foreign},
    Row{"menu", Special | ClosesParagraph},
    Row{"meta", Void | Special},
    Row{"nav", Special | ClosesParagraph},
    Row{"nobr", Formatting},
    Row{"noembed", Special},
    Row{"noframes", Special},
    Row{"noscript", Special},
    Row{"object", Special | Scope},
    Row{"ol", Special | ClosesParagraph},
    Row{"optgroup", OptionalEnd},
    Row{"option", OptionalEnd},
    Row{"p", Special | ClosesParagraph | OptionalEnd},
    Row{"param", Void | Special},
    Row{"plaintext", Special | ClosesParagraph},
    Row{"pre", Special | ClosesParagraph},
    Row{"rb", OptionalEnd},
    Row{"rp", OptionalEnd},
    Row{"rt", OptionalEnd},
    Row{"rtc", OptionalEnd},
    Row{"s", Formatting},
    Row{"script", Special},
    Row{"section", Special | ClosesParagraph},
    Row{"select", Special},
    Row{"small", Formatting},
    Row{"source", Void | Special},
    Row{"spacer", Void},
    Row{"strike", Formatting},
    Row{"strong", Formatting},
    Row{"style", Special},
    Row{"summary", Special | ClosesParagraph},
    Row{"svg", Foreign},
    Row{"table", Special | ClosesParagraph | Scope | Table},
    Row{"tbody", Special | Table | OptionalEnd},
    Row{"td", Special | Scope | Table | OptionalEnd},
    Row{"template", Special | Scope},
    Row{"textarea", Special},
    Row{"tfoot", Special | Table | OptionalEnd},
    Row{"th", Special | Scope | Table | OptionalEnd},
    Row{"thead", Special | Table | OptionalEnd},
    Row{"title", Special},
    Row{"tr", Special | Table | OptionalEnd},
    Row{"track", Void | Special},
    Row{"tt", Formatting},
    Row{"u", Formatting},
    Row{"ul", Special | ClosesParagraph},
    Row{"wbr", Void | Special},
    Row{"xmp", Special | ClosesParagraph},
};
static_assert(std::ranges::is_sorted(rows, {}, &Row::name));

constexpr std::size_t longestName = 10;

struct Closing {
    std::string_view start;
    std::string_view open;
};

/// Beside a paragraph, which many close.
constexpr std::array closings{Closing{"dd", "dd"}, Closing{"dd", "dt"}, Closing{"dt", "dd"},
    Closing{"dt", "dt"}, Closing{"li", "li"}, Closing{"optgroup", "optgroup"}, Closing{"optgroup", "option"},
    Closing{"option", "option"}, Closing{"rp", "rp"}, Closing{"rp", "rt"}, Closing{"rt", "rp"},
    Closing{"rt", "rt"}, Closing{"tbody", "caption"}, Closing{"tbody", "colgroup"}, Closing{"tbody", "tbody"},
    Closing{"tbody", "td"}, Closing{"tbody", "tfoot"}, Closing{"tbody", "th"}, Closing{"tbody", "thead"},
    Closing{"tbody", "tr"}, Closing{"td", "caption"}, Closing{"td", "colgroup"}, Closing{"td", "td"},
    Closing{"td", "th"}, Closing{"tr", "caption"}, Closing{"tr", "colgroup"}, Closing{"tr", "td"},
    Closing{"tr", "th"}, Closing{"tr", "tr"}};

constexpr const Row &row(TagId tag)
{
    return rows[static_cast<std::size_t>(tag)];
}

constexpr std::string_view nameOf(TagId tag)
{
    return row(tag).name;
}

/// Parts of tables that close the same things.
constexpr std::string_view alike(std::string_view name)
{
    if (name == "thead" || name == "tfoot")
        return "tbody";
    return name == "th" ? "td" : name;
}

constexpr TagId idOf(std::string_view name)
{
    return static_cast<TagId>(std::ranges::lower_bound(rows, name, {}, &Row::name) - rows.begin());
}

/// For each start tag the elements it closes, worked out once: this is asked for every tag.
using ClosingTable = std::array<std::array<bool, rows.size()>, rows.size()>;
constexpr auto closingTable = [] {
    ClosingTable table{};
    for (std::size_t start = 0; start < rows.size(); ++start) {
        for (const auto &closing : closings) {
            if (closing.start == alike(rows[start].name))
                table[start][static_cast<std::size_t>(idOf(closing.open))] = true;
        }
        if ((rows[start].kinds & ClosesParagraph) != 0)
            table[start][static_cast<std::size_t>(idOf("p"))] = true;
    }
    return table;
}();

constexpr auto address = idOf("address");
constexpr auto button = idOf("button");
constexpr auto div = idOf("div");
constexpr auto paragraph = idOf("p");
constexpr auto table = idOf("table");
constexpr auto fragment = idOf("template");

} // namespace

TagId tagId(std::string_view name)
{
    std::array<char, longestName> lower{};
    if (name.size() > lower.size())
        return TagId{};
    std::ranges::transform(
        name, lower.begin(), [](char c) { return static_cast<char>(c >= 'A' && c <= 'Z' ? c + 0x20 : c); });
    const std::string_view wanted(lower.data(), name.size());
    const auto found = std::ranges::lower_bound(rows, wanted, {}, &Row::name);
    return found != rows.end() && found->name == wanted ? static_cast<TagId>(found - rows.begin()) : TagId{};
}

bool has(TagId tag, TagKind kind)
{
    return (row(tag).kinds & static_cast<unsigned>(kind)) != 0;
}

bool isTag(TagId tag, std::string_view lowerCaseName)
{
    return nameOf(tag) == lowerCaseName;
}

bool closesSomething(TagId start)
{
    return std::ranges::find(closingTable[static_cast<std::size_t>(start)], true)
        != closingTable[static_cast<std::size_t>(start)].end();
}

bool closesImplied(TagId start, TagId open)
{
    return closingTable[static_cast<std::size_t>(start)][static_cast<std::size_t>(open)];
}

bool endsImpliedSearch(TagId start, TagId open)
{
    if (has(start, TagKind::Table) && start != table)
        return open == table || open == fragment;
    const bool isItem = closesImplied(start, start);
    if (has(start, TagKind::ClosesParagraph) && !isItem)
        return has(open, TagKind::Scope) || open == button;
    return has(open, TagKind::Special) && open != address && open != div && open != paragraph;
}

bool endsEndTagSearch(TagId end, TagId open)
{
    if (has(end, TagKind::Table))
        return open == fragment || (open == table && end != table);
    return has(open, has(end, TagKind::Special) ? TagKind::Scope : TagKind::Special);
}

} // namespace kevra::page
