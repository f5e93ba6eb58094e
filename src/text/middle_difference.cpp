// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/middle_difference.h"

#include <algorithm>

namespace kevra {
namespace {

std::vector<std::string_view> linesOf(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size() - 1) + 1;
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return lines;
}

} // namespace

std::vector<Hunk> middleDifference(std::string_view before, std::string_view after)
{
    if (before == after)
        return {};
    const auto old = linesOf(before);
    const auto now = linesOf(after);
    const auto [oldFirst, nowFirst] = std::ranges::mismatch(old, now);
    const auto [oldLast, nowLast] = std::mismatch(
        old.rbegin(), std::reverse_iterator(oldFirst), now.rbegin(), std::reverse_iterator(nowFirst));
    return {{oldFirst - old.begin(), oldLast.base() - oldFirst, nowFirst - now.begin(),
        nowLast.base() - nowFirst}};
}

} // namespace kevra
