// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/line_ends.h"

#include "editor/mark_scan.h"
#include "files/line_match.h"

#include <algorithm>
#include <array>
#include <bit>

namespace kevra {
namespace {

constexpr std::string_view crLf = "\r\n";
constexpr std::array lineEndTexts{crLf, std::string_view("\n"), std::string_view("\r")};

std::string_view endText(LineEnds ends)
{
    return ends == LineEnds::Lf ? lineEndTexts[1] : ends == LineEnds::Cr ? lineEndTexts[2] : crLf;
}

struct EndCounts {
    std::size_t crLf = 0;
    std::size_t lf = 0; ///< alone
    std::size_t cr = 0; ///< alone
};

EndCounts countEnds(std::string_view text)
{
    EndCounts counts;
    forEachLane(text, [&](Places places, std::size_t, unsigned valid) {
        const auto returns = is(places.behind(0), '\r');
        const auto both = bitsOf(returns & is(places.behind(1), '\n')) & valid;
        counts.crLf += static_cast<std::size_t>(std::popcount(both));
        counts.cr += static_cast<std::size_t>(std::popcount(bitsOf(returns) & valid & ~both));
        counts.lf += static_cast<std::size_t>(std::popcount(bitsOf(is(places.behind(0), '\n')) & valid));
    });
    counts.lf -= counts.crLf;
    return counts;
}

std::string replaceEach(std::string_view text, std::string_view from, std::string_view to)
{
    std::string out;
    out.reserve(text.size() + text.size() / 16);
    for (;;) {
        const auto at = text.find(from);
        out.append(text.substr(0, at));
        if (at == std::string_view::npos)
            return out;
        out.append(to);
        text.remove_prefix(at + from.size());
    }
}

std::string joinLines(std::string_view text, std::string_view end)
{
    std::string out;
    out.reserve(text.size() + text.size() / 16);
    for (const auto &line : splitLines(text)) {
        out.append(line.content);
        if (!line.end.empty())
            out.append(end);
    }
    return out;
}

std::string_view commonestEnd(const std::vector<Line> &lines)
{
    const auto number = [&](std::string_view end) { return std::ranges::count(lines, end, &Line::end); };
    return std::ranges::max(lineEndTexts, {}, number);
}

std::vector<std::string_view> contents(const std::vector<Line> &lines)
{
    std::vector<std::string_view> all;
    all.reserve(lines.size());
    std::ranges::transform(lines, std::back_inserter(all), &Line::content);
    return all;
}

} // namespace

std::vector<Line> splitLines(std::string_view text)
{
    std::vector<Line> lines;
    lines.reserve(static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1);
    for (;;) {
        const auto at = text.find_first_of(crLf);
        if (at == std::string_view::npos)
            break;
        const std::size_t length = text.substr(at).starts_with(crLf) ? 2 : 1;
        lines.push_back({text.substr(0, at), text.substr(at, length)});
        text.remove_prefix(at + length);
    }
    lines.push_back({text, {}});
    return lines;
}

LineEnds lineEndsOf(std::string_view text)
{
    const auto counts = countEnds(text);
    const int kinds = (counts.crLf > 0) + (counts.lf > 0) + (counts.cr > 0);
    if (kinds > 1)
        return LineEnds::Mixed;
    return counts.crLf > 0 ? LineEnds::CrLf
        : counts.lf > 0    ? LineEnds::Lf
        : counts.cr > 0    ? LineEnds::Cr
                           : LineEnds::None;
}

std::string toCrLf(std::string_view text, LineEnds ends)
{
    switch (ends) {
    case LineEnds::None:
    case LineEnds::CrLf:
        return std::string(text);
    case LineEnds::Lf:
        return replaceEach(text, "\n", crLf);
    case LineEnds::Cr:
        return replaceEach(text, "\r", crLf);
    case LineEnds::Mixed:
        break;
    }
    return joinLines(text, crLf);
}

std::string fromCrLf(std::string_view text, LineEnds ends)
{
    const auto counts = countEnds(text);
    if (counts.lf > 0 || counts.cr > 0)
        return joinLines(text, endText(ends));
    return endText(ends) == crLf ? std::string(text) : replaceEach(text, crLf, endText(ends));
}

std::string withLineEndsOf(std::string_view text, std::string_view original)
{
    const auto before = splitLines(original);
    const auto after = splitLines(text);
    const auto commonest = commonestEnd(before);
    const auto origins = matchLines(contents(before), contents(after));

    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < after.size(); ++i) {
        out.append(after[i].content);
        if (after[i].end.empty())
            continue;
        const auto end = origins[i] ? before[*origins[i]].end : std::string_view();
        out.append(end.empty() ? commonest : end);
    }
    return out;
}

} // namespace kevra
