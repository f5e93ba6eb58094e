// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/tag_scanner.h"

#include <algorithm>
#include <array>

namespace kevra::page {
namespace {

constexpr auto npos = std::string_view::npos;

constexpr std::array<std::string_view, 8> rawText{
    "script", "style", "textarea", "title", "xmp", "iframe", "noembed", "noframes"};

/// What is raw text in a page is tags in these.
constexpr std::array<std::string_view, 2> drawings{"svg", "math"};

/// Just past the comment that begins at text[at]; "<!-->" is one as well.
[[nodiscard]] std::size_t pastComment(std::string_view text, std::size_t at)
{
    for (const std::string_view empty : {"<!-->", "<!--->"}) {
        if (text.substr(at).starts_with(empty))
            return at + empty.size();
    }
    for (auto end = text.find("--", at + 4); end != npos; end = text.find("--", end + 1)) {
        for (const std::string_view close : {"-->", "--!>"}) {
            if (text.substr(end).starts_with(close))
                return end + close.size();
        }
    }
    return text.size();
}

} // namespace

bool isRawText(std::string_view tag)
{
    return std::ranges::any_of(rawText, [&](std::string_view raw) { return script::sameWord(raw, tag); });
}

TagScanner::TagScanner(std::string_view text)
    : m_text(text)
{
}

/// Just past what begins at m_text[at] == '<' and is no tag.
std::size_t TagScanner::pastMarkup(std::size_t at) const
{
    if (m_text.substr(at).starts_with("<!--"))
        return pastComment(m_text, at);
    const char kind = at + 1 < m_text.size() ? m_text[at + 1] : ' ';
    return kind == '!' || kind == '?' || kind == '/' ? script::past(m_text, ">", at) : at + 1;
}

/// Whether the end tag of that element begins at m_text[at] == '<'.
bool TagScanner::isEndTag(std::size_t at, std::string_view name) const
{
    const auto after = at + 2 + name.size();
    return m_text.substr(at).starts_with("</") && script::sameWord(m_text.substr(at + 2, name.size()), name)
        && (after >= m_text.size() || std::string_view(" \t\r\n\f/>").find(m_text[after]) != npos);
}

void TagScanner::passRawText(std::string_view name)
{
    auto at = m_text.find("</", m_at);
    while (at != npos && !isEndTag(at, name))
        at = m_text.find("</", at + 2);
    m_at = std::min(at, m_text.size());
}

void TagScanner::countDrawings(const script::Tag &tag)
{
    for (std::size_t i = 0; i < drawings.size(); ++i) {
        if (script::sameWord(tag.name, drawings[i]) && !tag.empty)
            m_drawings[i] = std::max(m_drawings[i] + (tag.closing ? -1 : 1), 0);
    }
}

std::optional<script::Tag> TagScanner::next()
{
    for (m_at = std::min(m_text.find('<', m_at), m_text.size()); m_at < m_text.size();
         m_at = std::min(m_text.find('<', m_at), m_text.size())) {
        auto tag = script::readTag(m_text, m_at);
        if (tag.name.empty()) {
            m_at = pastMarkup(m_at);
            continue;
        }
        m_at = static_cast<std::size_t>(tag.range.end);
        countDrawings(tag);
        m_holdsTags = false;
        if (tag.closing || !isRawText(tag.name))
            return tag;
        const bool isInDrawing = std::ranges::any_of(m_drawings, [](int open) { return open > 0; });
        const auto next = isInDrawing ? m_text.find('<', m_at) : npos;
        m_holdsTags = next != npos && !tag.empty && !isEndTag(next, tag.name);
        if (!m_holdsTags && !(isInDrawing && tag.empty))
            passRawText(tag.name);
        return tag;
    }
    return std::nullopt;
}

} // namespace kevra::page
