// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/style_addresses.h"

#include "script/markup.h"

#include <algorithm>

namespace kevra::page {
namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::string_view blanks = " \t\r\n\f";

[[nodiscard]] std::size_t pastBlanks(std::string_view style, std::size_t at)
{
    return std::min(style.find_first_not_of(blanks, at), style.size());
}

/// The string that begins at style[at] with a quotation mark; empty where it does not end on its line.
[[nodiscard]] std::string_view stringAt(std::string_view style, std::size_t at)
{
    const auto end = style.find_first_of(style[at] == '"' ? "\"\r\n" : "'\r\n", at + 1);
    return end == npos || style[end] != style[at] ? std::string_view() : style.substr(at + 1, end - at - 1);
}

/// After "url(" or "@import".
[[nodiscard]] std::string_view addressAt(std::string_view style, std::size_t at, bool needsString)
{
    at = pastBlanks(style, at);
    if (at < style.size() && (style[at] == '"' || style[at] == '\''))
        return stringAt(style, at);
    const auto end = needsString ? npos : style.find_first_of("()\"'", at);
    return end == npos || style[end] != ')' ? std::string_view()
                                            : script::trimmed(style.substr(at, end - at));
}

} // namespace

std::vector<std::string_view> addressesInStyle(std::string_view style)
{
    std::vector<std::string_view> addresses;
    for (std::size_t at = 0; at < style.size();) {
        const auto rest = style.substr(at);
        const bool isUrl = script::sameWord(rest.substr(0, 4), "url(");
        const bool isImport = script::sameWord(rest.substr(0, 7), "@import");
        if (rest.starts_with("/*")) {
            at = script::past(style, "*/", at + 2);
        } else if (isUrl || isImport) {
            at += isUrl ? 4 : 7;
            const auto address = addressAt(style, at, isImport);
            if (!address.empty() && address.find('\\') == npos)
                addresses.push_back(address);
            at += address.size();
        } else if (rest.front() == '"' || rest.front() == '\'') {
            at += std::max<std::size_t>(stringAt(style, at).size() + 2, 1);
        } else {
            ++at;
        }
    }
    return addresses;
}

} // namespace kevra::page
