// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/page_rules.h"
#include "script/markup.h"

#include <algorithm>
#include <array>

namespace kevra::page {
namespace {

using script::Rule;

/// After the last attribute, where another one can be put in.
[[nodiscard]] Offset endOfAttributes(const PageModel &page, const Element &element)
{
    if (element.attributes.empty())
        return std::min(element.startTag.end - 1,
            static_cast<Offset>(page.html.find_first_of(
                " \t\r\n\f/>", static_cast<std::size_t>(element.startTag.start) + 1)));
    Offset end = 0;
    for (const auto &attribute : element.attributes) {
        end = std::max({end, attribute.nameRange.end, attribute.valueRange.end});
        const auto after = static_cast<std::size_t>(attribute.valueRange.end);
        const bool quoted = attribute.valueRange.end > attribute.nameRange.end
            && std::string_view("\"'").find(page.html[after]) != std::string_view::npos;
        end = quoted ? std::max(end, attribute.valueRange.end + 1) : end;
    }
    return end;
}

[[nodiscard]] script::Fix insertion(
    const PageModel &page, const Element &element, std::string title, const std::string &attributes)
{
    const auto place = endOfAttributes(page, element);
    return {std::move(title), {{{place, place}, ' ' + attributes}}};
}

[[nodiscard]] bool isDecoration(const Element &picture)
{
    const auto is = [&](std::string_view name, std::string_view value) {
        const auto *attribute = picture.find(name);
        return attribute != nullptr && script::sameWord(script::trimmed(attribute->value), value);
    };
    return is("role", "presentation") || is("role", "none") || is("aria-hidden", "true");
}

void checkText(const PageModel &page, const Element &picture, Findings &findings)
{
    if (picture.find("alt") != nullptr || isDecoration(picture))
        return;
    findings.push_back({Rule::PictureWithoutText, picture.startTag, "The picture has no alt attribute.", {},
        {insertion(page, picture, "Add alt=\"\"", "alt=\"\"")}});
}

/// Where nothing says how large the picture is to be.
void checkSize(const PageModel &page, const Element &picture, Findings &findings)
{
    constexpr std::array<std::string_view, 5> saysSize{"width", "height", "style", "srcset", "sizes"};
    const auto *source = picture.find("src");
    if (source == nullptr
        || std::ranges::any_of(saysSize, [&](auto name) { return picture.find(name) != nullptr; }))
        return;
    const auto target = page.addresses.local(source->value);
    const auto size = target && !target->path.empty() ? page.files.pictureSize(target->path) : std::nullopt;
    if (!size)
        return;
    const auto attributes
        = "width=\"" + std::to_string(size->width) + "\" height=\"" + std::to_string(size->height) + '"';
    findings.push_back({Rule::PictureWithoutSize, picture.startTag,
        "The picture has no width and height; it is " + std::to_string(size->width) + " by "
            + std::to_string(size->height) + " pixels.",
        {}, {insertion(page, picture, "Add " + attributes, attributes)}});
}

} // namespace

void checkPictures(const PageModel &page, Findings &findings)
{
    for (const auto &element : page.tree.elements()) {
        if (element.tag != "img" || element.startTag.empty() || page.isOpen(element.startTag))
            continue;
        checkText(page, element, findings);
        checkSize(page, element, findings);
    }
}

} // namespace kevra::page
