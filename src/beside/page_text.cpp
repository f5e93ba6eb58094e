// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/page_text.h"

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

PageText makePageText(std::string text, const PageTextRequest &request)
{
    const auto started = std::chrono::steady_clock::now();
    auto retyped = request.shown ? request.shown->page.retyped(text) : std::nullopt;
    auto page = retyped ? std::move(*retyped) : page::MarkedPage(std::move(text));
    PageText made{request.revision, std::move(page), {}, 0, {}, {}, {}};
    if (request.use == PageUse::Load) {
        made.shown = made.page.text({});
    } else if (request.shown) {
        made.base = request.shown->revision;
        made.change = page::changeBetween(request.shown->page, made.page);
    }
    made.marked = scriptLiteral(
        made.change ? made.page.text(offsetAttribute, made.change->after) : made.page.text(offsetAttribute));
    made.cost
        = std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - started);
    return made;
}

Offset PageText::elementAt(Offset offset) const
{
    const auto found = page.tree().elementAt(offset);
    return found ? page.tree().elements()[*found].startTag.start : -1;
}

Offset PageText::elementAtCaret(Offset caret) const
{
    const auto here = elementAt(caret);
    const auto before = page.tree().elementAt(caret - 1);
    if (!before || here == caret)
        return here;
    const auto &element = page.tree().elements()[*before];
    const bool isOpen = element.endTag.empty() && element.whole.end == caret && element.startTag.end < caret;
    return isOpen ? element.startTag.start : here;
}

std::optional<TextRange> PageText::elementFrom(Offset tag) const
{
    const auto found = page.tree().elementAt(tag);
    if (!found || page.tree().elements()[*found].startTag.start != tag)
        return std::nullopt;
    return page.tree().elements()[*found].whole;
}

} // namespace kevra
