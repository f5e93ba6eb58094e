// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/edited_lines.h"

#include "encoding/iso2022_jp.h"
#include "encoding/line_match.h"

#include <algorithm>
#include <unordered_map>

namespace kevra {
namespace {

std::vector<std::string_view> contents(const std::vector<Line> &lines)
{
    std::vector<std::string_view> all;
    all.reserve(lines.size());
    std::ranges::transform(lines, std::back_inserter(all), &Line::content);
    return all;
}

/// The ASCII character in a unit of two or four bytes; 0 for any other character.
char asciiUnit(std::string_view unit, bool bigEndian)
{
    const auto significant = bigEndian ? unit.size() - 1 : 0;
    for (std::size_t i = 0; i < unit.size(); ++i)
        if (i != significant && unit[i] != '\0')
            return '\0';
    return unit[significant];
}

/// splitLines() for units of two or four bytes.
std::vector<Line> splitWideLines(std::string_view bytes, std::size_t unit, bool bigEndian)
{
    const auto at = [&](std::size_t i) {
        return i + unit <= bytes.size() ? asciiUnit(bytes.substr(i, unit), bigEndian) : '\0';
    };
    std::vector<Line> lines;
    std::size_t start = 0;
    for (std::size_t i = 0; i < bytes.size();) {
        const char c = at(i);
        const auto length = c == '\r' && at(i + unit) == '\n' ? 2 * unit : unit;
        if (c == '\r' || c == '\n') {
            lines.push_back({bytes.substr(start, i - start), bytes.substr(i, length)});
            start = i + length;
        }
        i += length;
    }
    lines.push_back({bytes.substr(std::min(start, bytes.size())), {}});
    return lines;
}

std::vector<Line> splitBytes(std::string_view bytes, Encoding encoding)
{
    const auto unit = static_cast<std::size_t>(unitSize(encoding));
    if (unit == 1)
        return splitLines(bytes);
    return splitWideLines(bytes, unit, encoding == Encoding::Utf16Be || encoding == Encoding::Utf32Be);
}

Shift shiftAfter(std::string_view bytes, Shift before, Encoding encoding)
{
    return characterSet(encoding).form == Form::Shifting ? shiftAfter(bytes, before) : before;
}

/// For a set with escape sequences: the shift in which every line starts.
std::vector<Shift> shiftsOf(const std::vector<Line> &lines, Encoding encoding)
{
    std::vector<Shift> shifts(lines.size(), Shift::Ascii);
    for (std::size_t i = 0; i + 1 < lines.size(); ++i)
        shifts[i + 1] = shiftAfter(lines[i].content, shifts[i], encoding);
    return shifts;
}

/// Converts each line end once: thousands of lines have the same few.
class LineEndBytes {
public:
    explicit LineEndBytes(Encoding encoding)
        : m_encoding(encoding)
    {
    }
    [[nodiscard]] const std::string &of(std::string_view end)
    {
        const auto [it, isNew] = m_bytes.try_emplace(end);
        if (isNew)
            it->second = fromUtf8(end, m_encoding).value_or(std::string());
        return it->second;
    }

private:
    Encoding m_encoding;
    std::unordered_map<std::string_view, std::string> m_bytes;
};

} // namespace

EditedLines::EditedLines(std::string_view text, std::string_view before, LineEnds ends)
{
    const auto old = splitLines(before);
    const auto now = splitLines(text);
    const auto usual = ends == LineEnds::Mixed ? mostCommonEnd(old) : endText(ends);
    const auto origins = matchLines(contents(old), contents(now));
    m_linesBefore = old.size();
    m_lines.reserve(now.size());
    for (std::size_t i = 0; i < now.size(); ++i) {
        EditedLine line{now[i].content, now[i].end.empty() ? std::string_view() : usual, std::nullopt};
        if (const auto origin = origins[i]) {
            if (ends == LineEnds::Mixed && !line.end.empty() && !old[*origin].end.empty())
                line.end = old[*origin].end;
            if (old[*origin].content == line.content)
                line.kept = origin;
        }
        // A CR followed by an LF would merge two line ends into one.
        if (line.end == "\n" && line.content.empty() && !m_lines.empty() && m_lines.back().end == "\r")
            line.end = "\r\n";
        m_lines.push_back(line);
    }
}

std::string EditedLines::text() const
{
    std::string out;
    for (const auto &line : m_lines)
        out.append(line.content).append(line.end);
    return out;
}

std::optional<std::string> EditedLines::bytes(
    std::string_view original, Encoding encoding, RawBytes rawBytes) const
{
    const auto old = splitBytes(original, encoding);
    if (old.size() != m_linesBefore)
        return std::nullopt;
    const auto shifts = shiftsOf(old, encoding);
    LineEndBytes ends(encoding);
    auto shift = Shift::Ascii;
    std::string out;
    const auto shiftTo = [&](Shift wanted) {
        if (shift != wanted)
            out += escapeOf(wanted);
        shift = wanted;
    };
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const auto &line = m_lines[i];
        if (line.kept) {
            shiftTo(shifts[*line.kept]);
            out += old[*line.kept].content;
            shift = shiftAfter(old[*line.kept].content, shift, encoding);
        } else {
            const auto content = fromUtf8(line.content, encoding, rawBytes);
            if (!content)
                return std::nullopt;
            shiftTo(Shift::Ascii);
            out += *content;
            // The next line keeps its bytes, which depend on the shift in which it starts.
            if (i + 1 < m_lines.size() && m_lines[i + 1].kept)
                shiftTo(shifts[*m_lines[i + 1].kept]);
        }
        out += ends.of(line.end);
    }
    return out;
}

} // namespace kevra
