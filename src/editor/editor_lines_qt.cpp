// SPDX-License-Identifier: GPL-3.0-or-later
// The control's lines and those of the text: an overlong line is several in Scintilla.
#include "editor/editor_control_qt.h"

#include "editor/edit_scope_qt.h"
#include "text/flag_guard.h"

#include <algorithm>

namespace kevra {
namespace {

constexpr std::size_t appendedAtOnce = 1 << 20; ///< bytes; avoids a second copy of the whole text

/// The length of the whole lines in the first `most` bytes, or of one longer line.
std::size_t wholeLines(std::string_view text, std::size_t most)
{
    if (text.size() <= most)
        return text.size();
    const auto end = text.substr(0, most).rfind('\n');
    return end == text.npos ? std::min(text.find('\n', most), text.size() - 1) + 1 : end + 1;
}

} // namespace

std::string_view EditorControl::bytesInControl(Offset start, Offset length) const
{
    return {reinterpret_cast<const char *>(send(SCI_GETRANGEPOINTER, start, length)),
        static_cast<std::size_t>(length)};
}

std::string_view EditorControl::Text(TextRange range) const
{
    const auto part = inside(range);
    if (part.empty())
        return {};
    if (m_breaks.next(part.start) >= part.end)
        return bytesInControl(m_breaks.toControl(part.start), part.length());
    m_part.clear();
    m_breaks.eachPiece(
        part, [&](TextRange piece, Offset start) { m_part += bytesInControl(start, piece.length()); });
    return m_part;
}

std::string_view EditorControl::textWithoutBreaks() const
{
    if (!std::exchange(m_wholeKnown, true)) {
        m_whole.clear();
        m_whole.reserve(static_cast<std::size_t>(TextLength()));
        m_breaks.eachPiece({0, TextLength()},
            [&](TextRange piece, Offset start) { m_whole += bytesInControl(start, piece.length()); });
    }
    return m_whole;
}

Offset EditorControl::TextLength() const
{
    return controlLength() - SoftBreaks::markLength * m_breaks.count();
}

Offset EditorControl::controlLength() const
{
    return send(SCI_GETLENGTH);
}

/// In Scintilla's text, without breaks at its ends.
TextRange EditorControl::controlRange(TextRange range) const
{
    const auto start = m_breaks.toControl(range.start);
    return {start, range.empty() ? start : m_breaks.toControlBefore(range.end)};
}

void EditorControl::appendWithBreaks(std::string_view text)
{
    const FlagGuard breaking(m_breaking);
    while (!text.empty()) {
        const auto length = wholeLines(text, appendedAtOnce);
        const auto broken = withBreaks(text.substr(0, length), m_limits);
        sendBytes(SCI_APPENDTEXT, std::ssize(broken), broken.data());
        settle();
        text.remove_prefix(length);
    }
}

void EditorControl::updateBreaks(TextRange edited)
{
    updateBreaksAt(edited.end);
    if (!edited.empty())
        updateBreaksAt(edited.start);
}

void EditorControl::updateBreaksAt(Offset position)
{
    const auto line = send(SCI_LINEFROMPOSITION, m_breaks.toControl(position));
    const auto start = send(SCI_POSITIONFROMLINE, line);
    const auto end = send(SCI_GETLINEENDPOSITION, line);
    if (end - start > m_limits.longest) {
        const FlagGuard breaking(m_breaking);
        const auto content = Text({m_breaks.toText(start), m_breaks.toText(end)});
        const auto places = breakPlaces(content, m_limits.piece);
        for (auto at = places.rbegin(); at != places.rend(); ++at)
            sendBytes(SCI_INSERTTEXT, start + *at, std::string(SoftBreaks::mark).c_str());
        settle();
    }
    auto here = m_breaks.countAt(position);
    if (here == 0)
        return;
    const bool atLineEnd = position == 0 || position == TextLength() || Text({position - 1, position}) == "\n"
        || Text({position, position + 1}) == "\r";
    for (; here > (atLineEnd ? 0 : 1); --here)
        send(SCI_DELETERANGE, m_breaks.toControlBefore(position), SoftBreaks::markLength);
    settle();
}

void EditorControl::leaveBreaks()
{
    if (m_breaks.empty())
        return;
    const auto outside = [this](Offset place) {
        const auto before = m_breaks.toControlBefore(m_breaks.toText(place));
        return place - (place - before) % SoftBreaks::markLength;
    };
    const auto anchor = send(SCI_GETANCHOR);
    const auto caret = send(SCI_GETCURRENTPOS);
    if (outside(anchor) != anchor || outside(caret) != caret)
        send(SCI_SETSELECTION, outside(caret), outside(anchor));
}

std::optional<Offset> EditorControl::readInserted()
{
    if (!m_inserted)
        return std::nullopt;
    const auto [start, end] = *std::exchange(m_inserted, std::nullopt);
    const std::string_view content(
        reinterpret_cast<const char *>(send(SCI_GETRANGEPOINTER, start, end - start)),
        static_cast<std::size_t>(end - start));
    return m_breaks.inserted(start, content);
}

Offset EditorControl::controlLine(Offset line) const
{
    // Binary search for the breaks before the line: break i is on Scintilla's line minus i.
    Offset first = 0;
    auto last = m_breaks.count();
    while (first < last) {
        const auto middle = first + (last - first) / 2;
        if (send(SCI_LINEFROMPOSITION, m_breaks.inControl(middle)) - middle < line)
            first = middle + 1;
        else
            last = middle;
    }
    return line + first;
}

Offset EditorControl::lineCount() const
{
    return send(SCI_GETLINECOUNT) - m_breaks.count();
}

TextRange EditorControl::lineRange(Offset line) const
{
    const auto first = controlLine(line);
    const auto last = m_breaks.empty() ? first : controlLine(line + 1) - 1;
    return {m_breaks.toText(send(SCI_POSITIONFROMLINE, first)),
        m_breaks.toText(send(SCI_GETLINEENDPOSITION, last))};
}

std::string EditorControl::stylesIn(TextRange range) const
{
    std::string styles;
    styles.reserve(static_cast<std::size_t>(range.length()));
    std::string pairs; // character, style, and a closing pair
    m_breaks.eachPiece(range, [&](TextRange piece, Offset start) {
        pairs.resize(static_cast<std::size_t>(2 * piece.length() + 2));
        SendScintilla(SCI_GETSTYLEDTEXT, static_cast<long>(start), static_cast<long>(start + piece.length()),
            pairs.data());
        for (std::size_t i = 0; i < static_cast<std::size_t>(piece.length()); ++i)
            styles += pairs[2 * i + 1];
    });
    return styles;
}

void EditorControl::setStyles(Offset start, std::string_view styles)
{
    m_allBlack = false;
    m_breaks.eachPiece({start, start + std::ssize(styles)}, [&](TextRange piece, Offset place) {
        send(SCI_STARTSTYLING, place);
        sendBytes(SCI_SETSTYLINGEX, piece.length(), styles.data() + (piece.start - start));
    });
    stylesAreUpToDate();
}

} // namespace kevra
