// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/page_analysis.h"

#include "page/page_rules.h"
#include "script/markup.h"
#include "script/silencing.h"

#include <algorithm>
#include <array>

namespace kevra::page {
namespace {

constexpr auto npos = std::string_view::npos;

constexpr std::array rules{checkLinks, checkPictures, checkIds, checkNesting};

/// Empty where the server says it.
[[nodiscard]] std::optional<std::string_view> baseOf(
    const ElementTree &tree, const std::vector<ServerPart> &parts)
{
    for (const auto &element : tree.elements()) {
        const auto *href = element.tag == "base" ? element.find("href") : nullptr;
        if (href != nullptr)
            return holdsServerPart(parts, href->valueRange) ? std::string_view() : href->value;
    }
    return std::nullopt;
}

/// Without blanks a line ends there, or the page.
[[nodiscard]] bool isAlone(std::string_view html, std::size_t start, std::size_t end)
{
    constexpr std::string_view blanks = " \t\f";
    const auto before = html.substr(0, start).find_last_not_of(blanks);
    const auto after = html.find_first_not_of(blanks, end);
    const auto isBreak = [&](std::size_t at) { return at == npos || html[at] == '\r' || html[at] == '\n'; };
    return isBreak(before) && isBreak(after);
}

/// Alone on its line the comment is about the element that follows, else about its line. `line` is that of
/// the comment before, which in a page of one long line is the same.
[[nodiscard]] TextRange silencedBy(const PageModel &page, std::size_t start, std::size_t end, TextRange &line)
{
    if (!isAlone(page.html, start, end)) {
        if (static_cast<Offset>(end) > line.end) {
            const auto lineBreak = page.html.substr(0, start).find_last_of("\r\n");
            const auto lineEnd = std::min(page.html.find_first_of("\r\n", end), page.html.size());
            line = {lineBreak == npos ? 0 : static_cast<Offset>(lineBreak) + 1, static_cast<Offset>(lineEnd)};
        }
        return line;
    }
    const auto &order = page.tree.byPlace();
    const auto startOf = [&](std::size_t i) { return page.tree.elements()[i].startTag.start; };
    const auto next = std::ranges::lower_bound(order, static_cast<Offset>(end), {}, startOf);
    return next == order.end() ? TextRange{} : page.tree.elements()[*next].whole;
}

/// What is said again of the same place costs nothing.
void add(std::vector<script::Silence> &silences, script::Silence next)
{
    if (silences.empty() || silences.back().range != next.range || silences.back().rules != next.rules)
        silences.push_back(std::move(next));
}

[[nodiscard]] std::vector<script::Silence> silencesIn(const PageModel &page)
{
    constexpr std::string_view open = "<!--";
    std::vector<script::Silence> silences;
    TextRange line;
    for (auto start = page.plain.find(open); start != npos; start = page.plain.find(open, start)) {
        const auto end = script::past(page.plain, "-->", start + open.size());
        const auto words
            = std::string_view(page.plain).substr(start + open.size(), end - start - open.size());
        const auto close = words.rfind("-->");
        if (auto switchedOff = script::rulesSwitchedOff(words.substr(0, close)))
            add(silences, {silencedBy(page, start, end, line), std::move(*switchedOff)});
        start = end;
    }
    return silences;
}

/// A name in a page can hold line breaks, with which it would look like findings of its own.
[[nodiscard]] bool isControl(char c)
{
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

} // namespace

PageModel::PageModel(std::string_view page, const PageFolders &folders, PageFiles &pageFiles)
    : html(page)
    , parts(findServerParts(page))
    , plain(withoutServerParts(page, parts))
    , tree(ElementTree::parse(page))
    , addresses(folders, baseOf(tree, parts))
    , files(pageFiles)
{
}

std::string_view PageModel::text(TextRange range) const
{
    return html.substr(static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.length()));
}

bool PageModel::isAssembled() const
{
    return std::ranges::any_of(parts, [](const ServerPart &part) { return !part.isOutput; })
        || plain.find("<!--#include") != std::string::npos;
}

std::vector<script::Finding> analysePage(std::string_view html, const PageFolders &folders, PageFiles &files)
{
    const PageModel page(html, folders, files);
    Findings findings;
    for (const auto &rule : rules)
        rule(page, findings);
    std::ranges::stable_sort(
        findings, {}, [](const script::Finding &finding) { return finding.range.start; });
    if (!findings.empty())
        script::dropSilenced(silencesIn(page), findings);
    for (auto &finding : findings)
        std::ranges::replace_if(finding.what, isControl, ' ');
    return findings;
}

} // namespace kevra::page
