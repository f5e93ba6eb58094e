// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/page_files.h"

#include "page/server_parts.h"
#include "page/tag_scanner.h"

#include <algorithm>
#include <array>

namespace kevra::page {

bool isPage(std::string_view path)
{
    constexpr std::array<std::string_view, 5> endings{".htm", ".html", ".hta", ".asp", ".php"};
    const auto dot = path.rfind('.');
    return dot != path.npos && std::ranges::any_of(endings, [&](auto ending) {
        return script::sameWord(path.substr(dot), ending);
    });
}

std::optional<TargetNames> targetNames(std::string_view page)
{
    if (!findServerParts(page).empty())
        return std::nullopt;
    TargetNames names;
    TagScanner scanner(page);
    while (const auto tag = scanner.next()) {
        for (const auto &attribute : tag->attributes) {
            const bool isName = script::sameWord(attribute.name, "name") && script::sameWord(tag->name, "a");
            if (!isName && !script::sameWord(attribute.name, "id"))
                continue;
            if (attribute.value.find('&') != std::string_view::npos)
                return std::nullopt;
            names.emplace(attribute.value);
        }
    }
    return names;
}

} // namespace kevra::page
