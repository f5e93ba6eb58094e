// SPDX-License-Identifier: GPL-3.0-or-later
#include "findings/finding_list.h"

#include <algorithm>
#include <numeric>

namespace kevra {

void FindingList::replace(std::vector<script::Finding> findings)
{
    m_findings = std::move(findings);
    m_changes.clear();
    m_known = true;
    choose();
}

void FindingList::forget()
{
    replace({});
    m_known = false;
}

void FindingList::setLevel(script::Level least)
{
    m_level = least;
    choose();
}

void FindingList::choose()
{
    m_shown.clear();
    for (std::size_t i = 0; i < m_findings.size(); ++i)
        if (m_findings[i].level() <= m_level)
            m_shown.push_back(i);
}

void FindingList::textChanged(Offset position, Offset removed, Offset added)
{
    if (m_findings.empty())
        return;
    if (!m_changes.empty()) {
        auto &last = m_changes.back();
        const auto end = last.position + last.added;
        // Continued typing, and Backspace over typed text.
        if (position >= last.position && position + removed == end) {
            last.added += added - removed;
            return;
        }
    }
    m_changes.push_back({position, removed, added});
}

void FindingList::applyChanges() const
{
    for (const auto &change : m_changes) {
        const auto end = change.position + change.removed;
        // A start at the insertion moves with its text; an end stays with the text before it.
        const auto moved = [&](Offset position, bool isStart) {
            if (position > end || (position == end && (isStart || change.removed > 0)))
                return position + change.added - change.removed;
            return std::min(position, change.position);
        };
        const auto move = [&](TextRange &range) {
            const bool empty = range.empty();
            range.start = moved(range.start, true);
            range.end = empty ? range.start : std::max(range.start, moved(range.end, false));
        };
        for (auto &finding : m_findings) {
            move(finding.range);
            for (auto &related : finding.related)
                move(related.range);
        }
    }
    m_changes.clear();
}

const script::Finding &FindingList::at(std::size_t index) const
{
    applyChanges();
    return m_findings[m_shown[index]];
}

std::vector<Offset> FindingList::firstPlaces(std::size_t count) const
{
    std::vector<Offset> places;
    for (std::size_t i = 0; i < std::min(count, size()); ++i)
        places.push_back(start(i));
    return places;
}

std::vector<std::size_t> FindingList::touching(TextRange range) const
{
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < size(); ++i) {
        const auto &place = at(i).range;
        if (place.start <= range.end && place.end >= range.start)
            found.push_back(i);
    }
    return found;
}

std::optional<std::size_t> FindingList::next(Offset caret, std::optional<std::size_t> current) const
{
    if (size() == 0)
        return std::nullopt;
    if (current && *current < size() && start(*current) == caret)
        return (*current + 1) % size();
    for (std::size_t i = 0; i < size(); ++i)
        if (start(i) > caret)
            return i;
    return 0;
}

std::optional<std::size_t> FindingList::previous(Offset caret, std::optional<std::size_t> current) const
{
    if (size() == 0)
        return std::nullopt;
    if (current && *current < size() && start(*current) == caret)
        return (*current + size() - 1) % size();
    for (std::size_t i = size(); i-- > 0;)
        if (start(i) < caret)
            return i;
    return size() - 1;
}

std::string FindingList::summary() const
{
    if (!m_known)
        return {};
    if (size() == 0)
        return "Analysis: no findings";
    return std::to_string(size()) + (size() == 1 ? " finding" : " findings");
}

std::string findingLine(const script::Finding &finding, Offset line)
{
    return "Line " + std::to_string(line) + ": " + std::string(script::levelName(finding.level())) + ' '
        + script::code(finding.rule) + ": " + finding.what;
}

} // namespace kevra
