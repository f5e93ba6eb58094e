// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/replacement.h"

#include <algorithm>

namespace kevra {
namespace {

constexpr Offset longestCharacter = 4; ///< bytes of UTF-8

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
        , m_looksAtSeam(options.words == Word::Whole || canMeet(what, by))
    {
    }

    std::variant<Replacement, Endless> run()
    {
        const auto first = m_finder.first(m_text, {0, std::ssize(m_text)});
        if (!first)
            return Replacement{};
        // The neighbours of the hit are the neighbours of what takes its place, so its edges are word edges.
        if (m_finder.first(m_by, {0, std::ssize(m_by)}))
            return Endless::NeverEnds;
        m_start = m_next = *first;
        // Memory that is not needed in the end costs nothing; growing a long result step by step would.
        m_result.reserve((m_text.size() - static_cast<std::size_t>(m_start)) / 4 * 5);
        put(0, *first + m_length);
        while (replaceNext())
            if (std::ssize(m_result) > longestResult)
                return Endless::NeverEnds;
        return Replacement{{m_start, m_next}, std::move(m_result), m_count};
    }

private:
    /// Whether a hit can begin in the replacement and end in what follows it.
    static bool canMeet(std::string_view what, std::string_view by)
    {
        for (std::size_t n = 1; n <= by.size() && n < what.size(); ++n)
            if (sameIgnoringCase(by.substr(by.size() - n), what.substr(0, n)))
                return true;
        return false;
    }

    /// The result up to `at` stays; then comes the replacement, and the old text goes on at `next`.
    void put(Offset at, Offset next)
    {
        m_result.resize(static_cast<std::size_t>(at));
        m_put = at;
        m_result += m_by;
        m_next = next;
        ++m_count;
    }

    bool replaceNext() { return (m_looksAtSeam && replaceAtSeam()) || replaceBehind(); }

    /// A hit that begins in the replacement just put in, or right behind it, whose left neighbour is new.
    bool replaceAtSeam()
    {
        const auto resultEnd = std::ssize(m_result);
        const auto from = std::max(m_put, resultEnd - m_length + 1);
        const auto context = std::max<Offset>(from - longestCharacter, 0);
        // A hit at the very start of the result has its neighbour in the old text.
        const auto before = part(m_text, m_start - (longestCharacter - (from - context)), m_start);
        auto seam = std::string(before);
        seam += part(m_result, context, resultEnd);
        seam += part(m_text, m_next, m_next + m_length + longestCharacter);
        const auto shift = context - std::ssize(before);
        const auto hit = m_finder.first(seam, {from - shift, resultEnd + m_length - shift});
        if (!hit)
            return false;
        const auto at = *hit + shift;
        put(at, m_next + at + m_length - resultEnd);
        return true;
    }

    bool replaceBehind()
    {
        const auto from = m_looksAtSeam ? m_next + 1 : m_next;
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
    bool m_looksAtSeam;
    Offset m_start = 0; ///< in the old text, where the result begins
    Offset m_next = 0; ///< in the old text, what comes behind the result
    Offset m_put = 0; ///< in the result, where the last replacement begins
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
