// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/replacement.h"

#include <algorithm>

namespace kevra {
namespace {

constexpr Offset maxCharacterBytes = 4; ///< bytes of UTF-8

std::string_view part(std::string_view text, Offset start, Offset end)
{
    start = std::clamp<Offset>(start, 0, std::ssize(text));
    end = std::clamp(end, start, std::ssize(text));
    return text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
}

class Replacing {
public:
    Replacing(std::string_view text, std::string_view what, std::string_view by, FindOptions options)
        : m_text(text)
        , m_by(by)
        , m_length(std::ssize(what))
        , m_finder(what, options)
        , m_checksSeam(options.words == Word::Whole || canMeet(what, by))
    {
    }

    std::variant<Replacement, Endless> run()
    {
        const auto first = m_finder.first(m_text, {0, std::ssize(m_text)});
        if (!first)
            return Replacement{};
        // The replacement gets the hit's neighbours, so its ends are word boundaries.
        if (m_finder.first(m_by, {0, std::ssize(m_by)}))
            return Endless::NeverEnds;
        m_start = m_next = *first;
        // Reserving unused memory is cheap; growing a long result step by step is not.
        m_result.reserve((m_text.size() - static_cast<std::size_t>(m_start)) / 4 * 5);
        put(0, *first + m_length);
        while (replaceNext())
            if (std::ssize(m_result) > maxResultBytes)
                return Endless::NeverEnds;
        return Replacement{{m_start, m_next}, std::move(m_result), m_count};
    }

private:
    /// Whether a hit can begin in the replacement and end in the text after it.
    static bool canMeet(std::string_view what, std::string_view by)
    {
        for (std::size_t n = 1; n <= by.size() && n < what.size(); ++n)
            if (sameForSearch(by.substr(by.size() - n), what.substr(0, n)))
                return true;
        return false;
    }

    /// Truncates the result at `at` and appends the replacement; the old text continues at `next`.
    void put(Offset at, Offset next)
    {
        m_result.resize(static_cast<std::size_t>(at));
        m_lastReplacement = at;
        m_result += m_by;
        m_next = next;
        ++m_count;
    }

    bool replaceNext() { return (m_checksSeam && replaceAtSeam()) || replaceInRest(); }

    /// Replaces a hit that starts in or directly after the last replacement, where the left context is new.
    bool replaceAtSeam()
    {
        const auto resultEnd = std::ssize(m_result);
        const auto from = std::max(m_lastReplacement, resultEnd - m_length + 1);
        const auto context = std::max<Offset>(from - maxCharacterBytes, 0);
        // A hit at the start of the result has its left neighbour in the old text.
        const auto before = part(m_text, m_start - (maxCharacterBytes - (from - context)), m_start);
        auto seam = std::string(before);
        seam += part(m_result, context, resultEnd);
        seam += part(m_text, m_next, m_next + m_length + maxCharacterBytes);
        const auto shift = context - std::ssize(before);
        const auto hit = m_finder.first(seam, {from - shift, resultEnd + m_length - shift});
        if (!hit)
            return false;
        const auto at = *hit + shift;
        put(at, m_next + at + m_length - resultEnd);
        return true;
    }

    bool replaceInRest()
    {
        const auto from = m_checksSeam ? m_next + 1 : m_next;
        const auto hit = m_finder.first(m_text, {from, std::ssize(m_text)});
        if (!hit)
            return false;
        m_result += part(m_text, m_next, *hit);
        put(std::ssize(m_result), *hit + m_length);
        return true;
    }

    std::string_view m_text;
    std::string_view m_by;
    Offset m_length;
    Finder m_finder;
    bool m_checksSeam;
    Offset m_start = 0; ///< in the old text, where the result begins
    Offset m_next = 0; ///< in the old text, where the text after the result begins
    Offset m_lastReplacement = 0; ///< in the result, where the last replacement begins
    std::string m_result;
    Offset m_count = 0;
};

} // namespace

std::variant<Replacement, Endless> replacedAll(
    std::string_view text, std::string_view what, std::string_view by, FindOptions options)
{
    return Replacing(text, what, by, options).run();
}

Offset countOccurrences(std::string_view text, std::string_view what, Case letters)
{
    const Finder finder(what, {.letters = letters});
    Offset count = 0;
    for (auto hit = finder.first(text, {0, std::ssize(text)}); hit;
         hit = finder.first(text, {*hit + 1, std::ssize(text)}))
        ++count;
    return count;
}

} // namespace kevra
