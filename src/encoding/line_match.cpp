// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/line_match.h"

#include <algorithm>
#include <span>
#include <unordered_map>
#include <utility>

namespace kevra {
namespace {

using Lines = std::span<const std::string_view>;
using Pair = std::pair<std::size_t, std::size_t>; ///< a line before, the same line after

/// Beyond so many lines put in or taken out the lines that occur once are lined up instead.
constexpr int maximumEdits = 500;

/// The shortest way from `before` to `after`, as the pairs of lines it keeps; nothing when it takes more than
/// maximumEdits lines. The greedy method: reached[k] is how far down `before` diagonal k has come.
std::optional<std::vector<Pair>> shortestEdit(Lines before, Lines after)
{
    const auto n = static_cast<int>(before.size());
    const auto m = static_cast<int>(after.size());
    const int limit = std::min(n + m, maximumEdits);
    std::vector<int> reached(2 * static_cast<std::size_t>(limit) + 3, 0);
    const auto at = [&](std::vector<int> &row, int k, int size) -> int & {
        return row[static_cast<std::size_t>(k + size + 1)];
    };
    std::vector<std::vector<int>> history;
    const auto comesDown = [&](int k, int d) {
        return k == -d || (k != d && at(reached, k - 1, limit) < at(reached, k + 1, limit));
    };
    const auto follow = [&](int x, int y) {
        while (x < n && y < m && before[static_cast<std::size_t>(x)] == after[static_cast<std::size_t>(y)])
            ++x, ++y;
        return x;
    };

    for (int d = 0; d <= limit; ++d) {
        for (int k = -d; k <= d; k += 2) {
            const int x = comesDown(k, d) ? at(reached, k + 1, limit) : at(reached, k - 1, limit) + 1;
            const int end = follow(x, x - k);
            at(reached, k, limit) = end;
            if (end < n || end - k < m)
                continue;
            // Back along the way that was taken.
            std::vector<Pair> kept;
            int toX = n;
            int toY = m;
            for (int step = d; step > 0; --step) {
                auto &row = history[static_cast<std::size_t>(step - 1)];
                const int diagonal = toX - toY;
                const bool down = diagonal == -step
                    || (diagonal != step
                        && at(row, diagonal - 1, step - 1) < at(row, diagonal + 1, step - 1));
                const int fromDiagonal = down ? diagonal + 1 : diagonal - 1;
                const int fromX = at(row, fromDiagonal, step - 1);
                const int startX = down ? fromX : fromX + 1;
                for (; toX > startX; --toX, --toY)
                    kept.emplace_back(toX - 1, toY - 1);
                toX = fromX;
                toY = fromX - fromDiagonal;
            }
            for (; toX > 0; --toX, --toY)
                kept.emplace_back(toX - 1, toY - 1);
            std::ranges::reverse(kept);
            return kept;
        }
        history.emplace_back(reached.begin() + (limit - d), reached.begin() + (limit + d + 3));
    }
    return std::nullopt;
}

/// The lines that occur once on either side, those of them that keep their order.
std::vector<Pair> uniqueLines(Lines before, Lines after)
{
    struct Places {
        int inBefore = 0;
        int inAfter = 0;
        std::size_t beforeAt = 0;
    };
    std::unordered_map<std::string_view, Places> places;
    places.reserve(before.size());
    for (std::size_t i = 0; i < before.size(); ++i) {
        auto &place = places[before[i]];
        ++place.inBefore;
        place.beforeAt = i;
    }
    for (const auto line : after)
        if (const auto it = places.find(line); it != places.end())
            ++it->second.inAfter;

    std::vector<Pair> candidates;
    for (std::size_t j = 0; j < after.size(); ++j)
        if (const auto it = places.find(after[j]);
            it != places.end() && it->second.inBefore == 1 && it->second.inAfter == 1)
            candidates.emplace_back(it->second.beforeAt, j);

    // The longest run of candidates that rises on both sides.
    std::vector<std::size_t> piles;
    std::vector<std::size_t> previous(candidates.size());
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        const auto pile = std::ranges::lower_bound(
            piles, candidates[i].first, {}, [&](std::size_t top) { return candidates[top].first; });
        previous[i] = pile == piles.begin() ? i : *std::prev(pile);
        if (pile == piles.end())
            piles.push_back(i);
        else
            *pile = i;
    }
    std::vector<Pair> rising;
    if (piles.empty())
        return rising;
    for (auto i = piles.back();; i = previous[i]) {
        rising.push_back(candidates[i]);
        if (previous[i] == i)
            break;
    }
    std::ranges::reverse(rising);
    return rising;
}

class Matcher {
public:
    explicit Matcher(Lines before, Lines after)
        : m_before(before)
        , m_after(after)
        , m_origins(after.size())
    {
    }

    void match(std::size_t beforeStart, std::size_t beforeEnd, std::size_t afterStart, std::size_t afterEnd)
    {
        while (
            beforeStart < beforeEnd && afterStart < afterEnd && m_before[beforeStart] == m_after[afterStart])
            m_origins[afterStart++] = beforeStart++;
        while (beforeStart < beforeEnd && afterStart < afterEnd
            && m_before[beforeEnd - 1] == m_after[afterEnd - 1])
            m_origins[--afterEnd] = --beforeEnd;
        if (afterStart == afterEnd)
            return;
        const auto before = m_before.subspan(beforeStart, beforeEnd - beforeStart);
        const auto after = m_after.subspan(afterStart, afterEnd - afterStart);
        if (const auto kept = before.empty() ? std::vector<Pair>() : shortestEdit(before, after)) {
            // With as many lines as before, lines changed in their places explain the same better.
            if (before.size() == after.size()
                && changedInPlace(before, after) <= before.size() - kept->size())
                return takePlaces(beforeStart, beforeEnd, afterStart, afterEnd);
            return alignGaps(*kept, beforeStart, beforeEnd, afterStart, afterEnd, &Matcher::takePlaces);
        }
        const auto anchors = uniqueLines(before, after);
        if (anchors.empty())
            return takePlaces(beforeStart, beforeEnd, afterStart, afterEnd);
        alignGaps(anchors, beforeStart, beforeEnd, afterStart, afterEnd, &Matcher::match);
    }

    std::vector<std::optional<std::size_t>> origins() && { return std::move(m_origins); }

private:
    using Fill = void (Matcher::*)(std::size_t, std::size_t, std::size_t, std::size_t);

    static std::size_t changedInPlace(Lines before, Lines after)
    {
        std::size_t changed = 0;
        for (std::size_t i = 0; i < before.size(); ++i)
            changed += before[i] != after[i];
        return changed;
    }

    void alignGaps(const std::vector<Pair> &pairs, std::size_t beforeStart, std::size_t beforeEnd,
        std::size_t afterStart, std::size_t afterEnd, Fill fill)
    {
        auto before = beforeStart;
        auto after = afterStart;
        for (const auto &[i, j] : pairs) {
            (this->*fill)(before, beforeStart + i, after, afterStart + j);
            m_origins[afterStart + j] = beforeStart + i;
            before = beforeStart + i + 1;
            after = afterStart + j + 1;
        }
        (this->*fill)(before, beforeEnd, after, afterEnd);
    }

    /// The first new line takes the place of the first old one, and so on.
    void takePlaces(
        std::size_t beforeStart, std::size_t beforeEnd, std::size_t afterStart, std::size_t afterEnd)
    {
        while (beforeStart < beforeEnd && afterStart < afterEnd)
            m_origins[afterStart++] = beforeStart++;
    }

    Lines m_before;
    Lines m_after;
    std::vector<std::optional<std::size_t>> m_origins;
};

} // namespace

std::vector<std::optional<std::size_t>> matchLines(
    const std::vector<std::string_view> &before, const std::vector<std::string_view> &after)
{
    Matcher matcher(before, after);
    matcher.match(0, before.size(), 0, after.size());
    return std::move(matcher).origins();
}

} // namespace kevra
