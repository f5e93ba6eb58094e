// SPDX-License-Identifier: GPL-3.0-or-later
#include "pad/pad_commands.h"

#include "text/flag_guard.h"

#include <algorithm>

namespace kevra {
namespace {

constexpr std::string_view lineBreak = "\r\n";

std::string_view withoutFinalBreak(std::string_view text)
{
    return text.ends_with(lineBreak) ? text.substr(0, text.size() - lineBreak.size()) : text;
}

} // namespace

PadCommands::PadCommands(EditorSurface &pad, const EditorSurface &surface, Clipboard &clipboard)
    : m_pad(pad)
    , m_surface(surface)
    , m_clipboard(clipboard)
{
}

void PadCommands::PadCut()
{
    const auto selection = m_pad.Selection();
    if (selection.empty())
        return;
    m_savedText = m_pad.SelText();
    m_saved = {selection.start, selection.start};
    setClipboard(m_savedText);
    // Cutting a whole line leaves its line break, so that the lines around it are not joined.
    replaceRange(selection, m_savedText.ends_with(lineBreak) ? lineBreak : std::string_view());
    m_pad.SetSelStart(selection.start);
    m_last = Operation::Cut;
}

void PadCommands::PadCopy()
{
    if (m_pad.Selection().empty())
        return;
    m_savedText = m_clipboard.readText();
    setClipboard(m_pad.SelText());
    m_last = Operation::Copy;
}

void PadCommands::PadPaste()
{
    const auto held = m_clipboard.readText();
    const auto text = withoutFinalBreak(held);
    takeDocumentFont();
    const auto start = m_pad.SelStart();
    replaceRange(m_pad.Selection(), text);
    m_saved = {start, start + static_cast<Offset>(text.size())};
    m_last = Operation::Paste;
}

void PadCommands::PadClear()
{
    m_savedText = m_pad.Text();
    setClipboard(m_savedText);
    replaceRange({0, m_pad.TextLength()}, {});
    m_last = Operation::Clear;
}

void PadCommands::PadUndo()
{
    switch (m_last) {
    case Operation::None:
        return;
    case Operation::Paste:
        replaceRange(m_saved, {});
        break;
    case Operation::Cut:
        takeDocumentFont();
        m_pad.SetSelStart(m_saved.start);
        m_pad.SetSelColor(colours::black);
        replaceRange(m_saved, withoutFinalBreak(m_savedText));
        break;
    case Operation::Clear:
        replaceRange({0, m_pad.TextLength()}, m_savedText);
        break;
    case Operation::Copy:
        setClipboard(m_savedText);
        break;
    }
    m_last = Operation::None;
}

void PadCommands::PadSelectAll()
{
    m_pad.Select({0, m_pad.TextLength()});
}

void PadCommands::empty()
{
    m_pad.LoadText({});
    m_last = Operation::None;
}

void PadCommands::textChanged(Offset position, Offset removed, Offset added)
{
    const bool anchored = m_last == Operation::Paste || m_last == Operation::Cut;
    if (m_replacing || !anchored || position >= m_saved.end)
        return;
    if (position + removed <= m_saved.start)
        m_saved = {m_saved.start + added - removed, m_saved.end + added - removed};
    else if (m_last == Operation::Cut)
        m_saved = {position, position};
    else
        m_saved = pastedAfter(position, removed, added);
}

/// The range of the pasted text after an edit inside it or across one of its ends.
TextRange PadCommands::pastedAfter(Offset position, Offset removed, Offset added) const
{
    const auto start = position < m_saved.start ? position + added : m_saved.start;
    const bool overEnd = position + removed > m_saved.end;
    return {start, std::max(start, overEnd ? position : m_saved.end + added - removed)};
}

void PadCommands::replaceRange(TextRange range, std::string_view text)
{
    const FlagGuard guard(m_replacing);
    m_pad.Replace(range, text);
}

void PadCommands::setClipboard(std::string_view text)
{
    m_clipboard.clear();
    if (!text.empty())
        m_clipboard.setText(text);
}

void PadCommands::takeDocumentFont()
{
    m_pad.SetFont({m_surface.Font().face, m_pad.Font().size});
}

} // namespace kevra
