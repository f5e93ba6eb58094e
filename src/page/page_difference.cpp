// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/page_difference.h"

#include <algorithm>
#include <array>

namespace kevra::page {
namespace {

constexpr std::array<std::string_view, 45> flowElements{"a", "abbr", "address", "article", "aside", "b",
    "blockquote", "body", "center", "cite", "code", "dd", "del", "details", "div", "dl", "dt", "em",
    "fieldset", "figcaption", "figure", "font", "footer", "h1", "h2", "h3", "h4", "h5", "h6", "header", "i",
    "ins", "kbd", "li", "main", "nav", "ol", "p", "section", "small", "span", "strong", "td", "th", "ul"};

} // namespace

bool holdsFlow(std::string_view tag)
{
    return std::ranges::find(flowElements, tag) != flowElements.end();
}

bool Difference::leads(Offset place, Offset now) const
{
    return (place <= before.start && now == place) || (place >= before.end && now == place + growth());
}

bool Difference::leads(TextRange range, TextRange now) const
{
    return range.empty() ? now.empty() : leads(range.start, now.start) && leads(range.end, now.end);
}

Difference differenceOf(std::string_view before, std::string_view after)
{
    const auto start = std::ranges::mismatch(before, after).in1 - before.begin();
    const auto limit = std::min(before.size(), after.size()) - static_cast<std::size_t>(start);
    const auto oldEnd = before.substr(before.size() - limit);
    const auto newEnd = after.substr(after.size() - limit);
    const auto same = std::mismatch(oldEnd.rbegin(), oldEnd.rend(), newEnd.rbegin()).first - oldEnd.rbegin();
    return {{start, std::ssize(before) - same}, {start, std::ssize(after) - same}};
}

Difference differenceOf(const MarkedPage &before, const MarkedPage &after)
{
    const auto plain = differenceOf(std::string_view(before.html()), std::string_view(after.html()));
    const auto &old = before.serverParts();
    const auto &now = after.serverParts();
    const auto same = [&](const ServerPart &a, const ServerPart &b) {
        return a.isOutput == b.isOutput && plain.leads(a.range, b.range);
    };
    const auto first = std::ranges::mismatch(old, now, same).in1 - old.begin();
    const auto limit = std::min(std::ssize(old), std::ssize(now)) - first;
    const auto last
        = std::mismatch(old.rbegin(), old.rbegin() + limit, now.rbegin(), same).first - old.rbegin();
    auto start = plain.before.start;
    auto rest = std::ssize(before.html()) - plain.before.end;
    const auto take = [&](const std::vector<ServerPart> &parts, const std::string &html) {
        for (auto part = parts.begin() + first; part < parts.end() - last; ++part) {
            start = std::min(start, part->range.start);
            rest = std::min(rest, std::ssize(html) - part->range.end);
        }
    };
    take(old, before.html());
    take(now, after.html());
    return {{start, std::ssize(before.html()) - rest}, {start, std::ssize(after.html()) - rest}};
}

} // namespace kevra::page
