// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/declared_charset.h"

#include "text/words.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace kevra {
namespace {

constexpr std::size_t searchedBytes = 4096;

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f';
}

std::string_view withoutLeadingBlanks(std::string_view text)
{
    const auto it = std::ranges::find_if_not(text, isBlank);
    return text.substr(static_cast<std::size_t>(it - text.begin()));
}

/// The value after `name` and an equals sign, without quotes.
std::optional<std::string_view> attribute(std::string_view tag, std::string_view name)
{
    for (; !tag.empty(); tag.remove_prefix(1)) {
        if (!startsWithIgnoringCase(tag, name))
            continue;
        auto rest = withoutLeadingBlanks(tag.substr(name.size()));
        if (rest.empty() || rest[0] != '=')
            continue;
        rest = withoutLeadingBlanks(rest.substr(1));
        rest.remove_prefix(std::min(rest.find_first_not_of("\"'"), rest.size()));
        const auto it = std::ranges::find_if(rest, [](char c) {
            return isBlank(c) || std::string_view("\"';/>%,").find(c) != std::string_view::npos;
        });
        return rest.substr(0, static_cast<std::size_t>(it - rest.begin()));
    }
    return std::nullopt;
}

std::optional<Encoding> encodingOfNumber(std::string_view digits)
{
    int number = 0;
    const auto *end = digits.data() + digits.size();
    if (std::from_chars(digits.data(), end, number).ptr != end)
        return std::nullopt;
    return encodingOfCodePage(number);
}

/// A declaration that could be read is in ASCII, so the text cannot be UTF-16 or UTF-32.
std::optional<Encoding> setToReadWith(Encoding named)
{
    switch (named) {
    case Encoding::Utf16Le:
    case Encoding::Utf16Be:
        return Encoding::Utf8;
    case Encoding::UserDefined:
        return Encoding::Windows1252;
    case Encoding::Utf32Le:
    case Encoding::Utf32Be:
        return std::nullopt;
    default:
        return named;
    }
}

/// The length of `text` up to and including `end`; all of it without `end`.
std::size_t lengthThrough(std::string_view text, std::string_view end)
{
    const auto at = text.find(end);
    return at == std::string_view::npos ? text.size() : at + end.size();
}

class Declarations {
public:
    explicit Declarations(std::string_view text)
        : m_text(text)
    {
    }

    void addName(std::optional<std::string_view> label)
    {
        if (label)
            add(*label, encodingNamed(*label), false);
    }
    void addCodePage(std::optional<std::string_view> label)
    {
        if (label)
            add(*label, encodingOfNumber(*label), true);
    }
    std::vector<Declaration> take() { return std::move(m_found); }

private:
    void add(std::string_view label, std::optional<Encoding> named, bool codePage)
    {
        const auto read = named ? setToReadWith(*named) : std::nullopt;
        if (!read)
            return;
        const auto start = label.data() - m_text.data();
        m_found.push_back({*named, *read, {start, start + std::ssize(label)}, codePage});
    }

    std::string_view m_text;
    std::vector<Declaration> m_found;
};

void addFromPage(std::string_view page, Declarations &found)
{
    while (!page.empty()) {
        page.remove_prefix(std::min(page.find('<'), page.size()));
        std::size_t length = std::min<std::size_t>(page.size(), 1);
        if (page.starts_with("<!--")) {
            length = lengthThrough(page, "-->");
        } else if (page.starts_with("<%@")) {
            length = lengthThrough(page, "%>");
            found.addCodePage(attribute(page.substr(0, length), "codepage"));
        } else if (startsWithIgnoringCase(page, "<meta") && page.size() > 5
            && (isBlank(page[5]) || page[5] == '/')) {
            length = lengthThrough(page, ">");
            found.addName(attribute(page.substr(0, length), "charset"));
        }
        page.remove_prefix(length);
    }
}

void addFromXml(std::string_view text, Declarations &found)
{
    if (text.starts_with("<?xml"))
        found.addName(attribute(text.substr(0, lengthThrough(text, "?>")), "encoding"));
}

/// Browsers accept it only in exactly this spelling.
void addFromStyleSheet(std::string_view text, Declarations &found)
{
    constexpr std::string_view start = "@charset \"";
    if (!text.starts_with(start))
        return;
    text.remove_prefix(start.size());
    if (const auto end = text.find("\";"); end != std::string_view::npos)
        found.addName(text.substr(0, end));
}

} // namespace

std::vector<Declaration> declarations(std::string_view text, TextKind kind)
{
    text = text.substr(0, searchedBytes);
    Declarations found(text);
    if (kind == TextKind::Page)
        addFromPage(text, found);
    if (kind == TextKind::Plain)
        addFromStyleSheet(text, found);
    addFromXml(text, found);
    return found.take();
}

std::optional<Encoding> declaredCharset(std::string_view text, TextKind kind)
{
    const auto all = declarations(text, kind);
    return all.empty() ? std::nullopt : std::optional(all.front().read);
}

std::string labelFor(const Declaration &declaration, Encoding encoding)
{
    if (!declaration.codePage)
        return std::string(labelOf(encoding));
    const auto number = characterSet(encoding).codePage;
    return number == 0 ? std::string() : std::to_string(number);
}

} // namespace kevra
