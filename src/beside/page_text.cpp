// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/page_text.h"

#include "page/marked_page.h"

#include <utility>

namespace kevra {
namespace {

constexpr auto offsetAttribute = "kevra-offset"; ///< as the following script reads it

} // namespace

std::string scriptLiteral(std::string_view text)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string literal = "\"";
    literal.reserve(text.size() + text.size() / 8 + 2);
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            literal.append({'\\', c});
        else if (byte < ' ')
            literal.append({'\\', 'x', digits[byte >> 4], digits[byte & 15]});
        else
            literal += c;
    }
    return literal += '"';
}

PageText makePageText(std::string_view text, std::uint64_t revision, PageUse use)
{
    page::MarkedPage page(text);
    auto shown = use == PageUse::Load ? page.text({}) : std::string{};
    auto marked = scriptLiteral(page.text(offsetAttribute));
    return {revision, std::move(shown), std::move(marked), std::move(page).tree()};
}

Offset PageText::elementAt(Offset offset) const
{
    const auto found = tree.elementAt(offset);
    return found ? tree.elements()[*found].startTag.start : -1;
}

std::optional<TextRange> PageText::elementFrom(Offset tag) const
{
    const auto found = tree.elementAt(tag);
    if (!found || tree.elements()[*found].startTag.start != tag)
        return std::nullopt;
    return tree.elements()[*found].whole;
}

} // namespace kevra
