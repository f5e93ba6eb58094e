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

[[nodiscard]] std::optional<std::string_view> baseOf(const ElementTree &tree)
{
    for (const auto &element : tree.elements()) {
        const auto *href = element.tag == "base" ? element.find("href") : nullptr;
        if (href != nullptr)
            return href->value;
    }
    return std::nullopt;
}

/// Alone on its line the comment is about the element that follows, else about its line.
[[nodiscard]] TextRange silencedBy(const PageModel &page, std::size_t start, std::size_t end)
{
    const auto lineBreak = page.html.substr(0, start).find_last_of("\r\n");
    const auto lineStart = lineBreak == npos ? 0 : lineBreak + 1;
    const auto lineEnd = std::min(page.html.find_first_of("\r\n", end), page.html.size());
    const bool alone = script::trimmed(page.html.substr(lineStart, start - lineStart)).empty()
        && script::trimmed(page.html.substr(end, lineEnd - end)).empty();
    if (!alone)
        return {static_cast<Offset>(lineStart), static_cast<Offset>(lineEnd)};
    const auto &order = page.tree.byPlace();
    const auto startOf = [&](std::size_t i) { return page.tree.elements()[i].startTag.start; };
    const auto next = std::ranges::lower_bound(order, static_cast<Offset>(end), {}, startOf);
    return next == order.end() ? TextRange{} : page.tree.elements()[*next].whole;
}

[[nodiscard]] std::vector<script::Silence> silencesIn(const PageModel &page)
{
    constexpr std::string_view open = "<!--";
    std::vector<script::Silence> silences;
    for (auto start = page.plain.find(open); start != npos; start = page.plain.find(open, start)) {
        const auto end = script::past(page.plain, "-->", start + open.size());
        const auto words
            = std::string_view(page.plain).substr(start + open.size(), end - start - open.size());
        const auto close = words.rfind("-->");
        if (auto switchedOff = script::rulesSwitchedOff(words.substr(0, close)))
            silences.push_back({silencedBy(page, start, end), std::move(*switchedOff)});
        start = end;
    }
    return silences;
}

} // namespace

PageModel::PageModel(std::string_view page, const PageFolders &folders, PageFiles &pageFiles)
    : html(page)
    , parts(findServerParts(page))
    , plain(withoutServerParts(page, parts))
    , tree(ElementTree::parse(page))
    , addresses(folders, baseOf(tree))
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
    return findings;
}

} // namespace kevra::page
