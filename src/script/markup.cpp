// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/markup.h"

#include <algorithm>

namespace kevra::script {

namespace {

constexpr std::string_view blanks = " \t\r\n\f";

unsigned char lower(char byte)
{
    return static_cast<unsigned char>(byte >= 'A' && byte <= 'Z' ? byte + 0x20 : byte);
}

bool isLetter(char byte)
{
    return lower(byte) >= 'a' && lower(byte) <= 'z';
}

std::size_t orEnd(std::size_t found, std::string_view text)
{
    return std::min(found, text.size());
}

/// The first of `stops` from `from` on, outside of <% %>.
std::size_t stopAt(std::string_view text, std::string_view stops, std::size_t from)
{
    while (from < text.size() && stops.find(text[from]) == stops.npos)
        from = text.substr(from, 2) == "<%" ? past(text, "%>", from) : from + 1;
    return from;
}

Attribute readAttribute(std::string_view text, std::size_t &at)
{
    Attribute attribute;
    const auto start = at;
    at = stopAt(text, " \t\r\n\f=>/", at + 1);
    attribute.name = text.substr(start, at - start);
    const auto equals = orEnd(text.find_first_not_of(blanks, at), text);
    if (equals == text.size() || text[equals] != '=')
        return attribute;
    at = orEnd(text.find_first_not_of(blanks, equals + 1), text);
    const char quote = at < text.size() ? text[at] : '>';
    if (quote == '"' || quote == '\'') {
        const auto close = stopAt(text, std::string_view(&quote, 1), at + 1);
        attribute.value = text.substr(at + 1, close - at - 1);
        at = orEnd(close + 1, text);
        return attribute;
    }
    const auto end = stopAt(text, " \t\r\n\f>", at);
    attribute.value = text.substr(at, end - at);
    at = end;
    return attribute;
}

} // namespace

bool sameWord(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, {}, lower, lower);
}

std::size_t findWord(std::string_view text, std::string_view word, std::size_t from)
{
    const auto start = text.begin() + static_cast<std::ptrdiff_t>(orEnd(from, text));
    const auto same = [](char a, char b) { return lower(a) == lower(b); };
    const auto found = std::search(start, text.end(), word.begin(), word.end(), same);
    return found == text.end() ? text.npos : static_cast<std::size_t>(found - text.begin());
}

std::string_view trimmed(std::string_view text)
{
    const auto start = text.find_first_not_of(blanks);
    if (start == text.npos)
        return {};
    return text.substr(start, text.find_last_not_of(blanks) - start + 1);
}

std::size_t past(std::string_view text, std::string_view close, std::size_t from)
{
    const auto found = text.find(close, from);
    return found == text.npos ? text.size() : found + close.size();
}

const Attribute *Tag::find(std::string_view attribute) const
{
    const auto found
        = std::ranges::find_if(attributes, [&](const Attribute &a) { return sameWord(a.name, attribute); });
    return found == attributes.end() ? nullptr : &*found;
}

std::string_view Tag::value(std::string_view attribute) const
{
    const auto *found = find(attribute);
    return found != nullptr ? trimmed(found->value) : std::string_view{};
}

Tag readTag(std::string_view text, std::size_t at)
{
    Tag tag;
    const auto start = at++;
    tag.closing = at < text.size() && text[at] == '/';
    at += tag.closing ? 1 : 0;
    if (at >= text.size() || !isLetter(text[at]))
        return tag;
    const auto nameEnd = orEnd(text.find_first_of(" \t\r\n\f>/<", at), text);
    tag.name = text.substr(at, nameEnd - at);
    at = nameEnd;
    for (;;) {
        at = orEnd(text.find_first_not_of(blanks, at), text);
        if (at == text.size() || text[at] == '>')
            break;
        tag.empty = text[at] == '/';
        if (text[at] == '/')
            ++at;
        else
            tag.attributes.push_back(readAttribute(text, at));
    }
    tag.range = {static_cast<Offset>(start), static_cast<Offset>(orEnd(at + 1, text))};
    return tag;
}

} // namespace kevra::script
