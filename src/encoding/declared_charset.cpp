// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/declared_charset.h"

#include "text/paths.h"
#include "text/words.h"

#include <algorithm>
#include <array>

namespace kevra {
namespace {

constexpr std::size_t searchedBytes = 4096;

struct CharsetName {
    std::string_view name; ///< as a meta tag or a code page number
    Encoding encoding;
};

constexpr std::array charsetNames{
    CharsetName{"utf-8", Encoding::Utf8},
    CharsetName{"utf8", Encoding::Utf8},
    CharsetName{"65001", Encoding::Utf8},
    CharsetName{"windows-1252", Encoding::Windows1252},
    CharsetName{"cp1252", Encoding::Windows1252},
    CharsetName{"x-cp1252", Encoding::Windows1252},
    CharsetName{"1252", Encoding::Windows1252},
    CharsetName{"iso-8859-1", Encoding::Latin1},
    CharsetName{"iso8859-1", Encoding::Latin1},
    CharsetName{"iso_8859-1", Encoding::Latin1},
    CharsetName{"latin1", Encoding::Latin1},
    CharsetName{"28591", Encoding::Latin1},
    CharsetName{"iso-8859-15", Encoding::Latin9},
    CharsetName{"iso8859-15", Encoding::Latin9},
    CharsetName{"iso_8859-15", Encoding::Latin9},
    CharsetName{"latin9", Encoding::Latin9},
    CharsetName{"28605", Encoding::Latin9},
};

bool startsWithIgnoringCase(std::string_view text, std::string_view start)
{
    return text.size() >= start.size() && equalIgnoringCase(text.substr(0, start.size()), start);
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f';
}

std::string_view withoutBlanks(std::string_view text)
{
    const auto it = std::ranges::find_if_not(text, isBlank);
    return text.substr(static_cast<std::size_t>(it - text.begin()));
}

/// The value after `name` and an equals sign, quotes left out.
std::optional<std::string_view> attribute(std::string_view tag, std::string_view name)
{
    for (; !tag.empty(); tag.remove_prefix(1)) {
        if (!startsWithIgnoringCase(tag, name))
            continue;
        auto rest = withoutBlanks(tag.substr(name.size()));
        if (rest.empty() || rest[0] != '=')
            continue;
        rest = withoutBlanks(rest.substr(1));
        rest.remove_prefix(std::min(rest.find_first_not_of("\"'"), rest.size()));
        const auto it = std::ranges::find_if(rest, [](char c) {
            return isBlank(c) || std::string_view("\"';/>%,").find(c) != std::string_view::npos;
        });
        return rest.substr(0, static_cast<std::size_t>(it - rest.begin()));
    }
    return std::nullopt;
}

std::optional<Encoding> namedCharset(std::optional<std::string_view> name)
{
    if (!name)
        return std::nullopt;
    const auto it = std::ranges::find_if(
        charsetNames, [&](const auto &row) { return equalIgnoringCase(row.name, *name); });
    return it == charsetNames.end() ? std::nullopt : std::optional(it->encoding);
}

/// Up to and with `end`, or all of it.
std::size_t lengthThrough(std::string_view text, std::string_view end)
{
    const auto at = text.find(end);
    return at == std::string_view::npos ? text.size() : at + end.size();
}

} // namespace

std::optional<Encoding> declaredCharset(std::string_view page)
{
    page = page.substr(0, searchedBytes);
    while (!page.empty()) {
        page.remove_prefix(std::min(page.find('<'), page.size()));
        std::size_t length = std::min<std::size_t>(page.size(), 1);
        std::optional<Encoding> found;
        if (page.starts_with("<!--")) {
            length = lengthThrough(page, "-->");
        } else if (page.starts_with("<%@")) {
            length = lengthThrough(page, "%>");
            found = namedCharset(attribute(page.substr(0, length), "codepage"));
        } else if (startsWithIgnoringCase(page, "<meta") && page.size() > 5
            && (isBlank(page[5]) || page[5] == '/')) {
            length = lengthThrough(page, ">");
            found = namedCharset(attribute(page.substr(0, length), "charset"));
        }
        if (found)
            return found;
        page.remove_prefix(length);
    }
    return std::nullopt;
}

} // namespace kevra
