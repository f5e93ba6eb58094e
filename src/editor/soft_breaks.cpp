// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/soft_breaks.h"

#include <algorithm>

namespace kevra {
namespace {

bool startsCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

} // namespace

Offset SoftBreaks::inControl(Offset number) const
{
    return m_places[static_cast<std::size_t>(number)] + markLength * number;
}

Offset SoftBreaks::toControl(Offset text) const
{
    return text + markLength * (std::ranges::upper_bound(m_places, text) - m_places.begin());
}

Offset SoftBreaks::toControlBefore(Offset text) const
{
    return text + markLength * (std::ranges::lower_bound(m_places, text) - m_places.begin());
}

Offset SoftBreaks::countAt(Offset text) const
{
    return (toControl(text) - toControlBefore(text)) / markLength;
}

Offset SoftBreaks::countBefore(Offset control) const
{
    Offset first = 0;
    auto last = count();
    while (first < last) {
        const auto middle = first + (last - first) / 2;
        if (inControl(middle) + markLength <= control)
            first = middle + 1;
        else
            last = middle;
    }
    return first;
}

Offset SoftBreaks::toText(Offset control) const
{
    const auto passed = countBefore(control);
    const auto text = control - markLength * passed;
    return passed < count() ? std::min(text, m_places[static_cast<std::size_t>(passed)]) : text;
}

Offset SoftBreaks::next(Offset text) const
{
    const auto later = std::ranges::upper_bound(m_places, text);
    return later == m_places.end() ? std::numeric_limits<Offset>::max() : *later;
}

void SoftBreaks::inserted(Offset control, Offset length)
{
    const auto first = m_places.begin() + countBefore(control + markLength - 1);
    std::for_each(first, m_places.end(), [length](Offset &later) { later += length; });
}

Offset SoftBreaks::inserted(Offset control, std::string_view content)
{
    const auto place = toText(control);
    std::vector<Offset> fresh;
    for (auto at = content.find(mark); at != content.npos; at = content.find(mark, at + mark.size()))
        fresh.push_back(place + static_cast<Offset>(at) - markLength * std::ssize(fresh));
    const auto length = std::ssize(content) - markLength * std::ssize(fresh);
    const auto before = countBefore(control + markLength - 1);
    inserted(control, length);
    m_places.insert(m_places.begin() + before, fresh.begin(), fresh.end());
    return length;
}

void SoftBreaks::removed(Offset control, Offset length)
{
    if (m_places.empty())
        return;
    const auto removedText = toText(control + length) - toText(control);
    const auto first = m_places.begin() + countBefore(control + markLength - 1);
    const auto last = m_places.begin() + countBefore(control + length);
    std::for_each(last, m_places.end(), [removedText](Offset &later) { later -= removedText; });
    if (first < last)
        m_places.erase(first, last);
}

bool hasLongLine(std::string_view text, Offset longest)
{
    // Searches backwards from where a line must have ended, so that most of the text is not read.
    const auto most = static_cast<std::size_t>(longest);
    for (std::size_t start = 0; text.size() - start > most;) {
        const auto end = text.substr(start, most + 1).rfind('\n');
        if (end == text.npos)
            return true;
        start += end + 1;
    }
    return false;
}

std::vector<Offset> breakPlaces(std::string_view line, Offset piece)
{
    std::vector<Offset> places;
    for (auto at = piece; at < std::ssize(line); at += piece) {
        while (at < std::ssize(line) && !startsCharacter(line[static_cast<std::size_t>(at)]))
            ++at;
        if (at < std::ssize(line))
            places.push_back(at);
    }
    return places;
}

std::string withBreaks(std::string_view text, const LineLimits &limits)
{
    std::string out;
    out.reserve(text.size() + text.size() / static_cast<std::size_t>(limits.piece) * SoftBreaks::mark.size());
    while (!text.empty()) {
        const auto end = text.find('\n');
        const auto line = text.substr(0, end == text.npos ? end : end + 1);
        const auto content = line.substr(0, line.find_last_not_of("\r\n") + 1);
        Offset done = 0;
        if (std::ssize(content) > limits.longest)
            for (const auto at : breakPlaces(content, limits.piece)) {
                out += content.substr(static_cast<std::size_t>(done), static_cast<std::size_t>(at - done));
                out += SoftBreaks::mark;
                done = at;
            }
        out += line.substr(static_cast<std::size_t>(done));
        text.remove_prefix(line.size());
    }
    return out;
}

} // namespace kevra
