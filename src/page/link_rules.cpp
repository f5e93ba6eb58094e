// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/page_rules.h"
#include "page/style_addresses.h"
#include "script/markup.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace kevra::page {
namespace {

using script::Rule;

enum class Form {
    Address,
    Place, ///< an address whose fragment leads to an element
    SourceSet, ///< several, each with its width or density
    Style,
};

struct LinkRow {
    std::string_view tag; ///< empty: every element
    std::string_view attribute;
    Form form;
};

constexpr std::array linkRows{
    LinkRow{"a", "href", Form::Place},
    LinkRow{"area", "href", Form::Place},
    LinkRow{"link", "href", Form::Address},
    LinkRow{"img", "src", Form::Address},
    LinkRow{"img", "srcset", Form::SourceSet},
    LinkRow{"source", "src", Form::Address},
    LinkRow{"source", "srcset", Form::SourceSet},
    LinkRow{"script", "src", Form::Address},
    LinkRow{"iframe", "src", Form::Address},
    LinkRow{"frame", "src", Form::Address},
    LinkRow{"input", "src", Form::Address},
    LinkRow{"embed", "src", Form::Address},
    LinkRow{"audio", "src", Form::Address},
    LinkRow{"video", "src", Form::Address},
    LinkRow{"video", "poster", Form::Address},
    LinkRow{"track", "src", Form::Address},
    LinkRow{"object", "data", Form::Address},
    LinkRow{"body", "background", Form::Address},
    LinkRow{"table", "background", Form::Address},
    LinkRow{"td", "background", Form::Address},
    LinkRow{"th", "background", Form::Address},
    LinkRow{"tr", "background", Form::Address},
    LinkRow{"image", "href", Form::Address}, // in a drawing
    LinkRow{"", "style", Form::Style},
};

/// Relations whose address names the page on its server, or a server.
constexpr std::array<std::string_view, 5> namesOfServers{
    "alternate", "canonical", "dns-prefetch", "preconnect", "pingback"};

[[nodiscard]] bool isName(const Element &element)
{
    const auto *relation = element.tag == "link" ? element.find("rel") : nullptr;
    return (relation != nullptr && std::ranges::any_of(namesOfServers, [&](auto name) {
        return script::findWord(relation->value, name, 0) != std::string::npos;
    })) || element.find("codebase") != nullptr;
}

/// Something else happens there than going to the place.
[[nodiscard]] bool isHandledByScript(const Element &element)
{
    return element.find("onclick") != nullptr || element.find("role") != nullptr;
}

[[nodiscard]] bool isAscii(std::string_view text)
{
    return std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

class LinkCheck {
public:
    LinkCheck(const PageModel &page, Findings &findings)
        : m_page(page)
        , m_findings(findings)
    {
    }

    void run();

private:
    void check(const Element &element, const LinkRow &row);
    void checkStyleSheet(const Element &element);
    void checkSourceSet(std::string_view set, TextRange place);
    void checkAddress(std::string_view address, TextRange place, bool leadsToPlace);
    void checkFragment(const LocalTarget &target, TextRange place);
    [[nodiscard]] bool exists(const std::string &path);
    [[nodiscard]] const TargetNames *ownNames();
    void add(Rule rule, TextRange place, std::string what)
    {
        m_findings.push_back({rule, place, std::move(what), {}, {}});
    }

    const PageModel &m_page;
    Findings &m_findings;
    std::unordered_map<std::string, bool> m_exists;
    std::optional<TargetNames> m_ownNames;
    bool m_ownNamesKnown = false;
};

void LinkCheck::run()
{
    for (const auto &element : m_page.tree.elements()) {
        if (element.startTag.empty() || isName(element))
            continue;
        for (const auto &row : linkRows) {
            if (row.tag.empty() || row.tag == element.tag)
                check(element, row);
        }
        if (element.tag == "style")
            checkStyleSheet(element);
    }
}

void LinkCheck::check(const Element &element, const LinkRow &row)
{
    const auto *attribute = element.find(row.attribute);
    if (attribute == nullptr || attribute->valueRange.empty() || m_page.isOpen(attribute->valueRange))
        return;
    const auto place = attribute->valueRange;
    switch (row.form) {
    case Form::Address:
    case Form::Place:
        return checkAddress(attribute->value, place, row.form == Form::Place && !isHandledByScript(element));
    case Form::SourceSet:
        return checkSourceSet(attribute->value, place);
    case Form::Style:
        for (const auto &address : addressesInStyle(attribute->value))
            checkAddress(address, place, false);
    }
}

/// Up to the end of the element, which holds nothing but text.
void LinkCheck::checkStyleSheet(const Element &element)
{
    const TextRange content{
        element.startTag.end, element.endTag.empty() ? element.whole.end : element.endTag.start};
    if (content.empty() || m_page.isOpen(content))
        return;
    const auto style = m_page.text(content);
    for (const auto &address : addressesInStyle(style)) {
        const auto start = content.start + (address.data() - style.data());
        checkAddress(address, {start, start + std::ssize(address)}, false);
    }
}

void LinkCheck::checkSourceSet(std::string_view set, TextRange place)
{
    constexpr std::string_view blanks = " \t\r\n\f";
    while (!set.empty()) {
        set.remove_prefix(std::min(set.find_first_not_of(" \t\r\n\f,"), set.size()));
        auto address = set.substr(0, set.find_first_of(blanks));
        set.remove_prefix(address.size());
        if (address.ends_with(','))
            address.remove_suffix(1);
        else
            set.remove_prefix(std::min(set.find(','), set.size()));
        if (!address.empty())
            checkAddress(address, place, false);
    }
}

bool LinkCheck::exists(const std::string &path)
{
    const auto [known, isNew] = m_exists.try_emplace(path);
    if (isNew)
        known->second = m_page.files.exists(path);
    return known->second;
}

void LinkCheck::checkAddress(std::string_view address, TextRange place, bool leadsToPlace)
{
    const auto target = m_page.addresses.local(address);
    if (!target)
        return;
    if (!target->path.empty() && !exists(target->path))
        return add(Rule::MissingFile, place,
            "The file \"" + percentDecoded(address.substr(0, address.find_first_of("?#")))
                + "\" does not exist.");
    if (leadsToPlace && !target->fragment.empty())
        checkFragment(*target, place);
}

const TargetNames *LinkCheck::ownNames()
{
    if (!m_ownNamesKnown)
        m_ownNames = targetNames(m_page.html);
    m_ownNamesKnown = true;
    return m_ownNames ? &*m_ownNames : nullptr;
}

void LinkCheck::checkFragment(const LocalTarget &target, TextRange place)
{
    // A script's own way through the page, or words to look for.
    const auto &fragment = target.fragment;
    if (fragment.starts_with('/') || fragment.starts_with('!') || fragment.find(":~:") != std::string::npos
        || script::sameWord(fragment, "top"))
        return;
    const auto *names = target.path.empty() ? ownNames() : m_page.files.targetsOf(target.path);
    const auto decoded = percentDecoded(fragment);
    if (names == nullptr || names->contains(fragment) || names->contains(decoded))
        return;
    if (target.path.empty())
        return add(Rule::MissingFragment, place, "The page has no element with the id \"" + decoded + "\".");
    // Another page may be in another character set.
    const auto name = target.path.substr(target.path.rfind('/') + 1);
    if (isAscii(decoded))
        add(Rule::MissingFragment, place,
            "The page \"" + name + "\" has no element with the id \"" + decoded + "\".");
}

} // namespace

void checkLinks(const PageModel &page, Findings &findings)
{
    LinkCheck(page, findings).run();
}

} // namespace kevra::page
