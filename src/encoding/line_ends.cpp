// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/line_ends.h"

#include "text/mark_scan.h"

#include <algorithm>
#include <array>

namespace kevra {
namespace {

constexpr std::string_view crLf = "\r\n";
constexpr std::array lineEndTexts{crLf, std::string_view("\n"), std::string_view("\r")};

struct EndKinds {
    bool crLf = false;
    bool lf = false; ///< somewhere without a CR before it
    bool cr = false; ///< somewhere without an LF after it
};

EndKinds endKindsOf(std::string_view text)
{
    EndKinds kinds;
    const TextRange all{0, static_cast<Offset>(text.size())};
    const auto look = [&](Offset, BlockBits returns, BlockBits feeds, BlockBits both) {
        kinds.crLf = kinds.crLf || both != 0;
        kinds.cr = kinds.cr || returns != 0;
        kinds.lf = kinds.lf || feeds != 0;
    };
    forEachBlock(
        text, all, look, [](auto p) { return is(p.at(0), '\r') & ~is(p.at(1), '\n'); },
        [](auto p) { return is(p.at(0), '\n') & ~is(p.at(-1), '\r'); },
        [](auto p) { return is(p.at(0), '\r') & is(p.at(1), '\n'); });
    return kinds;
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

std::string_view endText(LineEnds ends)
{
    return ends == LineEnds::Lf ? lineEndTexts[1] : ends == LineEnds::Cr ? lineEndTexts[2] : crLf;
}

LineEnds lineEndsOf(std::string_view text)
{
    const auto found = endKindsOf(text);
    if (found.crLf + found.lf + found.cr > 1)
        return LineEnds::Mixed;
    return found.crLf ? LineEnds::CrLf : found.lf ? LineEnds::Lf : found.cr ? LineEnds::Cr : LineEnds::None;
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

std::string toCrLf(std::string_view text)
{
    return toCrLf(text, lineEndsOf(text));
}

std::string fromCrLf(std::string_view text, LineEnds ends)
{
    const auto found = endKindsOf(text);
    if (found.lf || found.cr)
        return joinLines(text, endText(ends));
    return endText(ends) == crLf ? std::string(text) : replaceEach(text, crLf, endText(ends));
}

std::string_view mostCommonEnd(const std::vector<Line> &lines)
{
    const auto number = [&](std::string_view end) { return std::ranges::count(lines, end, &Line::end); };
    return std::ranges::max(lineEndTexts, {}, number);
}

} // namespace kevra
