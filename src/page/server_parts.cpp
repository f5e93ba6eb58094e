// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/server_parts.h"

#include <algorithm>
#include <optional>

namespace kevra::page {
namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::size_t longestValue = 256; ///< without quotation marks, that is looked back over

[[nodiscard]] ServerPart part(std::size_t start, std::size_t end, bool isOutput)
{
    return {{static_cast<Offset>(start), static_cast<Offset>(end)}, isOutput};
}

/// One search to the end of the text is enough.
struct Unclosed {
    bool asp = false;
    bool php = false;
};

/// The part that begins at text[at] == '<'.
[[nodiscard]] std::optional<ServerPart> partAt(std::string_view text, std::size_t at, Unclosed &unclosed)
{
    const auto rest = text.substr(at + 1, 4);
    if (rest.starts_with('%')) {
        const auto close = unclosed.asp ? npos : text.find("%>", at + 2);
        unclosed.asp = close == npos;
        if (unclosed.asp)
            return std::nullopt;
        return part(at, close + 2, rest.substr(1).starts_with('='));
    }
    const bool isOutput = rest.starts_with("?=");
    const bool isPhp = isOutput || rest == "?php" || rest == "?PHP";
    if (!isPhp && !rest.starts_with("? ") && !rest.starts_with("?\r"))
        return std::nullopt;
    const auto close = unclosed.php ? npos : text.find("?>", at + 2);
    if (close != npos)
        return part(at, close + 2, isOutput);
    unclosed.php = true;
    return isPhp ? std::optional(part(at, text.size(), isOutput)) : std::nullopt;
}

/// Whether text[at] continues or begins a value without quotation marks.
[[nodiscard]] bool isInBareValue(std::string_view text, std::size_t at)
{
    const auto window = text.substr(0, at).substr(at - std::min(at, longestValue));
    const auto stop = window.find_last_of("= \t\r\n\"'<>");
    return stop != npos && window[stop] == '=';
}

} // namespace

std::vector<ServerPart> findServerParts(std::string_view text)
{
    std::vector<ServerPart> parts;
    Unclosed unclosed;
    for (auto at = text.find('<'); at != npos; at = text.find('<', at)) {
        const auto found = partAt(text, at, unclosed);
        if (found)
            parts.push_back(*found);
        at = found ? static_cast<std::size_t>(found->range.end) : at + 1;
    }
    return parts;
}

std::string withoutServerParts(std::string_view text, const std::vector<ServerPart> &parts)
{
    std::string page(text);
    for (const auto &part : parts) {
        const auto start = static_cast<std::size_t>(part.range.start);
        const char fill = isInBareValue(page, start) ? 'x' : ' ';
        std::fill_n(page.begin() + part.range.start, part.range.length(), fill);
    }
    return page;
}

bool holdsServerPart(const std::vector<ServerPart> &parts, TextRange range)
{
    const auto endOf = [](const ServerPart &part) { return part.range.end; };
    const auto next = std::ranges::upper_bound(parts, range.start, {}, endOf);
    return next != parts.end() && next->range.start < range.end;
}

} // namespace kevra::page
