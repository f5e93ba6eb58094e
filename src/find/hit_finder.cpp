// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/hit_finder.h"

#include "text/words.h"

#include <re2/re2.h>

#include <algorithm>

namespace kevra {
namespace {

constexpr Offset backwardStep = 1 << 16; ///< bytes searched at once

std::string replaced(std::string_view text, std::string_view what, std::string_view by)
{
    std::string out;
    for (std::size_t at = 0; at < text.size();) {
        const auto hit = std::min(text.find(what, at), text.size());
        out += text.substr(at, hit - at);
        if (hit < text.size())
            out += by;
        at = std::min(hit, text.size() - 1) + what.size();
    }
    return out;
}

/// Part of the text, with line breaks of one character as the expressions expect them.
class PlainLines {
public:
    /// Starts at the beginning of the line with `from`, so that a search there sees its context.
    PlainLines(std::string_view text, Offset from)
    {
        const auto lineBreak = text.substr(0, static_cast<std::size_t>(from)).rfind('\n');
        m_base = lineBreak == std::string_view::npos ? 0 : static_cast<Offset>(lineBreak) + 1;
        auto rest = text.substr(static_cast<std::size_t>(m_base));
        m_text.reserve(rest.size());
        for (auto at = rest.find("\r\n"); at != std::string_view::npos; at = rest.find("\r\n")) {
            m_text += rest.substr(0, at);
            m_breaks.push_back(std::ssize(m_text));
            m_text += '\n';
            rest.remove_prefix(at + 2);
        }
        m_text += rest;
    }

    [[nodiscard]] const std::string &text() const { return m_text; }
    [[nodiscard]] std::size_t toPlain(Offset original) const
    {
        return static_cast<std::size_t>(original - m_base);
    }
    [[nodiscard]] Offset toOriginal(const char *place) const
    {
        const auto at = place - m_text.data();
        return m_base + at + (std::ranges::lower_bound(m_breaks, at) - m_breaks.begin());
    }

private:
    Offset m_base = 0;
    std::string m_text;
    std::vector<Offset> m_breaks; ///< where each "\n" replaces two characters
};

re2::StringPiece piece(std::string_view text)
{
    return {text.data(), text.size()};
}

RE2::Options optionsOf(const FindRequest &request)
{
    RE2::Options options;
    options.set_case_sensitive(request.letters == Case::Match);
    options.set_log_errors(false);
    return options;
}

} // namespace

/// "^" and "$" match at line ends.
class HitFinder::Expression {
public:
    explicit Expression(const FindRequest &request)
        : m_words(request.words)
        , m_entered(request.text)
        , m_pattern("(?m)" + request.text, optionsOf(request))
        , m_rewrite(replaced(replaced(request.replacement, "\\n", "\n"), "\\t", "\t"))
        , m_groups(static_cast<std::size_t>(std::max(0, m_pattern.NumberOfCapturingGroups())) + 1)
    {
    }

    [[nodiscard]] std::string fault() const
    {
        std::string error;
        if (m_pattern.ok())
            m_pattern.CheckRewriteString(piece(m_rewrite), &error);
        else // without the prefix, so that the message quotes only what was entered
            error = RE2(m_entered, m_pattern.options()).error();
        return error.empty() ? m_pattern.error() : error;
    }

    /// Calls `take` with each hit until it returns false; replacement() then refers to that hit.
    template <typename Take> void forEachHit(std::string_view text, Offset from, Take take)
    {
        const PlainLines lines(text, from);
        const auto &subject = lines.text();
        for (auto at = lines.toPlain(from); at <= subject.size();) {
            if (!m_pattern.Match(piece(subject), at, subject.size(), RE2::UNANCHORED, m_groups.data(),
                    static_cast<int>(m_groups.size())))
                return;
            const auto &hit = m_groups.front();
            const TextRange range{lines.toOriginal(hit.begin()), lines.toOriginal(hit.end())};
            const auto afterHit = static_cast<std::size_t>(hit.end() - subject.data());
            if (!hit.empty() && fits(text, range) && !take(range))
                return;
            at = hit.empty() ? afterHit + 1 : afterHit;
        }
    }

    /// The replacement for the hit passed last.
    [[nodiscard]] std::string replacement() const
    {
        std::string out;
        m_pattern.Rewrite(&out, piece(m_rewrite), m_groups.data(), static_cast<int>(m_groups.size()));
        return replaced(out, "\n", "\r\n");
    }

private:
    [[nodiscard]] bool fits(std::string_view text, TextRange hit) const
    {
        return m_words == Word::Any || (!wordBefore(text, hit.start) && !wordAt(text, hit.end));
    }

    Word m_words;
    std::string m_entered;
    RE2 m_pattern;
    std::string m_rewrite;
    std::vector<re2::StringPiece> m_groups;
};

HitFinder::HitFinder(const FindRequest &request)
    : m_request(request)
    , m_finder(request.text, request.options())
{
    if (request.pattern == Pattern::Text)
        return;
    m_expression = std::make_unique<Expression>(request);
    m_fault = m_expression->fault();
}

HitFinder::~HitFinder() = default;

std::optional<TextRange> HitFinder::first(std::string_view text, Offset from) const
{
    std::optional<TextRange> found;
    if (!m_fault.empty() || from > std::ssize(text))
        return found;
    if (m_expression)
        m_expression->forEachHit(text, from, [&](TextRange hit) {
            found = hit;
            return false;
        });
    else if (const auto hit = m_finder.first(text, {from, std::ssize(text)}))
        found = {*hit, *hit + std::ssize(m_request.text)};
    return found;
}

std::optional<TextRange> HitFinder::last(std::string_view text, Offset before) const
{
    std::optional<TextRange> found;
    if (!m_fault.empty())
        return found;
    if (m_expression) {
        m_expression->forEachHit(text, 0, [&](TextRange hit) {
            if (hit.start < before)
                found = hit;
            return hit.start < before;
        });
        return found;
    }
    const auto length = std::ssize(m_request.text);
    for (auto end = std::min(before, std::ssize(text)); end > 0 && !found; end -= backwardStep) {
        auto from = std::max<Offset>(0, end - backwardStep);
        const auto reach = std::min(end + length - 1, std::ssize(text));
        while (const auto hit = m_finder.first(text, {from, reach})) {
            found = {*hit, *hit + length};
            from = *hit + 1;
        }
    }
    return found;
}

std::vector<TextRange> HitFinder::all(std::string_view text) const
{
    std::vector<TextRange> hits;
    if (m_expression && m_fault.empty())
        m_expression->forEachHit(text, 0, [&](TextRange hit) {
            hits.push_back(hit);
            return true;
        });
    if (!m_expression)
        for (auto hit = first(text, 0); hit; hit = first(text, hit->end))
            hits.push_back(*hit);
    return hits;
}

std::string HitFinder::replacementOf(std::string_view text, TextRange part) const
{
    auto out = m_request.replacement;
    if (!m_expression || !m_fault.empty())
        return out;
    m_expression->forEachHit(text, part.start, [&](TextRange hit) {
        if (hit == part)
            out = m_expression->replacement();
        return false;
    });
    return out;
}

std::variant<Replacement, Endless> HitFinder::replacedAll(std::string_view text) const
{
    if (!m_expression)
        return kevra::replacedAll(text, m_request.text, m_request.replacement, m_request.options());
    Replacement made;
    if (!m_fault.empty())
        return made;
    m_expression->forEachHit(text, 0, [&](TextRange hit) {
        if (made.count++ == 0)
            made.range = {hit.start, hit.start};
        made.text += text.substr(
            static_cast<std::size_t>(made.range.end), static_cast<std::size_t>(hit.start - made.range.end));
        made.text += m_expression->replacement();
        made.range.end = hit.end;
        return std::ssize(made.text) <= maxResultBytes;
    });
    if (std::ssize(made.text) > maxResultBytes)
        return Endless::NeverEnds;
    return made;
}

} // namespace kevra
