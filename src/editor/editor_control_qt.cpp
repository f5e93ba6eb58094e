// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/editor_control_qt.h"

#include "editor/accessible_control_qt.h"
#include "editor/edit_scope_qt.h"
#include "text/flag_guard.h"
#include "text/utf8.h"
#include "text/words.h"

#include <QScrollBar>

#include <algorithm>

namespace kevra {
namespace {

using Sci = QsciScintillaBase;

/// Bytes allocated after a loaded text. Without them the first read, which appends a terminator, would move
/// the whole text.
constexpr Offset roomForTyping = Offset{64} * 1024;

/// The marker on unfinished lines.
constexpr Offset unfinished = 0;
constexpr Offset manyLines = 1000;

/// Shown where an overlong line continues below.
constexpr const char *breakByte = "\xFF";
constexpr const char *breakSign = "\u21A9";

/// The length of the common start of `a` and `b`, in whole characters.
Offset commonStart(std::string_view a, std::string_view b)
{
    auto same = std::ranges::mismatch(a, b).in1 - a.begin();
    const auto insideCharacter = [&](std::string_view text) {
        return same < std::ssize(text) && continuesCharacter(text[static_cast<std::size_t>(same)]);
    };
    while (same > 0 && (insideCharacter(a) || insideCharacter(b)))
        --same;
    return same;
}

Offset commonEnd(std::string_view a, std::string_view b)
{
    auto same = std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend()).first - a.rbegin();
    while (same > 0 && continuesCharacter(a[a.size() - static_cast<std::size_t>(same)]))
        --same;
    return same;
}

} // namespace

EditorControl::EditorControl(QWidget *parent)
    : QsciScintillaBase(parent)
    , m_direct(reinterpret_cast<Direct>(SendScintillaPtrResult(SCI_GETDIRECTFUNCTION)))
    , m_scintilla(SendScintillaPtrResult(SCI_GETDIRECTPOINTER))
    , m_styleColours(1, colours::black)
{
    // After the library has installed its own, with its first control.
    AccessibleControl::install();
    setUp();
    bindKeys();
    new AccessibilityNotifier(*this);
    connect(this, &Sci::SCN_MODIFIED, this,
        [this](int position, int type, const char *, int length) { beforeChange(position, type, length); });
    connectPainting();
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { announce(); });
    connect(this, &Sci::SCN_UPDATEUI, this, [this] {
        settle();
        announce();
    });
}

void EditorControl::setUp()
{
    // The font first, because many settings make Scintilla load its current font.
    applyFont();
    // Only notifications before a change: for those after it the library scans the text up to the change, for
    // accessibility.
    send(SCI_SETMODEVENTMASK, SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE);
    send(SCI_SETCODEPAGE, SC_CP_UTF8);
    send(SCI_SETEOLMODE, SC_EOL_CRLF);
    for (int margin = 0; margin < 5; ++margin)
        send(SCI_SETMARGINWIDTHN, margin, 0);
    send(SCI_SETMULTIPLESELECTION, 0);
    send(SCI_SETADDITIONALSELECTIONTYPING, 0);
    send(SCI_SETMOUSESELECTIONRECTANGULARSWITCH, 0);
    send(SCI_SETVIRTUALSPACEOPTIONS, SCVS_NONE);
    send(SCI_SETUSETABS, 1);
    send(SCI_SETTABWIDTH, 4);
    send(SCI_SETTABINDENTS, 0);
    send(SCI_SETBACKSPACEUNINDENTS, 0);
    send(SCI_SETSCROLLWIDTH, 1);
    send(SCI_SETSCROLLWIDTHTRACKING, 1);
    send(SCI_SETLAYOUTCACHE, SC_CACHE_PAGE);
    send(SCI_USEPOPUP, SC_POPUP_NEVER);
    send(SCI_MARKERDEFINE, unfinished, SC_MARK_EMPTY);
    sendBytes(SCI_SETREPRESENTATION, reinterpret_cast<Offset>(breakByte), breakSign);
    send(SCI_SETCARETFORE, 0);
    send(SCI_SETSELBACK, 1, 0xFFD3A6);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setAttribute(Qt::WA_KeyCompression, false);
}

std::intptr_t EditorControl::send(unsigned message, Offset first, std::intptr_t second) const
{
    return m_direct(m_scintilla, message, static_cast<std::uintptr_t>(first), second);
}

std::intptr_t EditorControl::sendBytes(unsigned message, Offset first, const char *bytes) const
{
    // An empty view may have a null pointer, which Scintilla refuses.
    return send(message, first, reinterpret_cast<std::intptr_t>(bytes ? bytes : ""));
}

TextRange EditorControl::inside(TextRange range) const
{
    const auto start = std::clamp<Offset>(range.start, 0, TextLength());
    return {start, std::clamp(range.end, start, TextLength())};
}

std::string_view EditorControl::Text() const
{
    if (!m_breaks.empty())
        return textWithoutBreaks();
    return {reinterpret_cast<const char *>(send(SCI_GETCHARACTERPOINTER)),
        static_cast<std::size_t>(TextLength())};
}

void EditorControl::reserve(Offset size)
{
    if (size <= controlLength())
        return;
    send(SCI_ALLOCATE, size);
    const auto status = send(SCI_GETSTATUS);
    send(SCI_SETSTATUS, SC_STATUS_OK);
    if (status == SC_STATUS_BADALLOC)
        throw std::bad_alloc();
}

void EditorControl::LoadText(std::string_view text)
{
    const EditScope scope(*this, EditKind::Program);
    // Before any of the old text is removed.
    const auto breaks = std::ssize(text) / m_limits.piece + 1;
    reserve(std::ssize(text) + SoftBreaks::markLength * breaks + roomForTyping);
    m_typing = colours::black;
    m_unpainted.clear();
    m_allBlack = true;
    m_characters.reset();
    send(SCI_MARKERDELETEALL, unfinished);
    send(SCI_SETREADONLY, 0);
    send(SCI_SETUNDOCOLLECTION, 0);
    send(SCI_CLEARALL);
    m_whole = {};
    m_part = {};
    if (hasLongLine(text, m_limits.longest))
        appendWithBreaks(text);
    else
        sendBytes(SCI_APPENDTEXT, std::ssize(text), text.data());
    send(SCI_SETUNDOCOLLECTION, 1);
    send(SCI_EMPTYUNDOBUFFER);
    send(SCI_SETSAVEPOINT);
    send(SCI_SETREADONLY, m_readOnly);
    settle();
    send(SCI_SETSCROLLWIDTH, 1);
    send(SCI_GOTOPOS, 0);
    stylesAreUpToDate();
}

void EditorControl::Replace(TextRange range, std::string_view text)
{
    const EditScope scope(*this, EditKind::Program);
    const auto part = inside(range);
    const auto old = Text(part);
    const auto kept = commonStart(old, text);
    const auto rest = static_cast<std::size_t>(kept);
    const auto keptAtEnd = commonEnd(old.substr(rest), text.substr(rest));
    const auto fresh = text.substr(rest, text.size() - rest - static_cast<std::size_t>(keptAtEnd));
    replaceBytes({part.start + kept, part.end - keptAtEnd}, fresh);
    const auto end = part.start + std::ssize(text);
    // The unchanged ends count as new text too.
    const auto style = styleOf(insertionColour());
    paint({part.start, part.start + kept}, style);
    paint({end - keptAtEnd, end}, style);
    m_changes.touch({part.start, std::ssize(text), std::ssize(text)});
    Select({end, end});
}

void EditorControl::replaceBytes(TextRange range, std::string_view text)
{
    send(SCI_SETREADONLY, 0);
    // Otherwise the buffers would grow by the whole new text, although it replaces the old one.
    if (std::ssize(text) > controlLength() / 2)
        send(SCI_ALLOCATE, controlLength() - range.length() + std::ssize(text) + roomForTyping);
    send(SCI_BEGINUNDOACTION);
    const auto [start, end] = controlRange(range);
    send(SCI_SETTARGETRANGE, start, end);
    if (hasLongLine(text, m_limits.longest)) {
        const auto broken = withBreaks(text, m_limits);
        const FlagGuard breaking(m_breaking);
        sendBytes(SCI_REPLACETARGET, std::ssize(broken), broken.data());
        settle();
    } else {
        sendBytes(SCI_REPLACETARGET, std::ssize(text), text.data());
        settle();
    }
    if (!range.empty() || !text.empty())
        updateBreaks({range.start, range.start + std::ssize(text)});
    send(SCI_ENDUNDOACTION);
    send(SCI_SETREADONLY, m_readOnly);
    settle();
}

TextRange EditorControl::Selection() const
{
    return {m_breaks.toText(send(SCI_GETSELECTIONSTART)), m_breaks.toText(send(SCI_GETSELECTIONEND))};
}

void EditorControl::Select(TextRange range)
{
    const EditScope scope(*this, EditKind::Program);
    const auto part = controlRange(inside(range));
    // Without display the view stays where it is.
    if (!m_displayed) {
        send(SCI_SETSELECTION, part.end, part.start);
        return;
    }
    send(SCI_SETSEL, part.start, part.end);
    // Up and Down continue in the new column.
    send(SCI_CHOOSECARETX);
}

AnchorAndCaret EditorControl::anchorAndCaret() const
{
    return {m_breaks.toText(send(SCI_GETANCHOR)), m_breaks.toText(send(SCI_GETCURRENTPOS))};
}

void EditorControl::stylesAreUpToDate()
{
    // Inserted text already has its colour, so Scintilla need not request styles for the text after it.
    send(SCI_STARTSTYLING, m_breaks.toControl(std::min(TextLength(), m_unpainted.start())));
}

void EditorControl::SetFont(const EditorFont &font)
{
    if (font == m_font)
        return;
    m_font = font;
    applyFont();
}

void EditorControl::applyFont()
{
    sendBytes(SCI_STYLESETFONT, STYLE_DEFAULT, m_font.face.c_str());
    send(SCI_STYLESETSIZE, STYLE_DEFAULT, m_font.size);
    send(SCI_STYLESETFORE, STYLE_DEFAULT, 0);
    send(SCI_STYLESETBACK, STYLE_DEFAULT, 0xFFFFFF);
    send(SCI_STYLECLEARALL);
    for (std::size_t style = 0; style < m_styleColours.size(); ++style)
        send(SCI_STYLESETFORE, static_cast<Offset>(style),
            static_cast<std::intptr_t>(m_styleColours[style].value));
}

void EditorControl::SetRightMargin(int twips)
{
    m_rightMargin = twips;
    send(SCI_SETWRAPMODE, twips == 0 ? SC_WRAP_WORD : SC_WRAP_NONE);
}

void EditorControl::SetUnfinished(Offset position, bool on)
{
    const auto line = controlLine(GetLineFromChar(position));
    const bool marked = send(SCI_MARKERGET, line) != 0;
    if (on != marked)
        send(on ? SCI_MARKERADD : SCI_MARKERDELETE, line, unfinished);
}

Offset EditorControl::NextUnfinished(TextRange range) const
{
    auto line = GetLineFromChar(range.start);
    const auto last = GetLineFromChar(range.end);
    if (last - line > manyLines) {
        const auto marked
            = send(SCI_MARKERNEXT, controlLine(line), 1 << unfinished); // to the end of the text
        line = marked == -1 ? -1 : GetLineFromChar(m_breaks.toText(send(SCI_POSITIONFROMLINE, marked)));
    } else {
        while (line <= last && send(SCI_MARKERGET, controlLine(line)) == 0)
            ++line;
    }
    return line == -1 || line > last ? -1 : std::max(range.start, lineRange(line).start);
}

Offset EditorControl::GetLineFromChar(Offset position) const
{
    const auto place = m_breaks.toControl(std::clamp<Offset>(position, 0, TextLength()));
    return send(SCI_LINEFROMPOSITION, place) - m_breaks.countBefore(place);
}

Offset EditorControl::FirstVisibleLine() const
{
    return send(SCI_GETFIRSTVISIBLELINE);
}

void EditorControl::SetFirstVisibleLine(Offset line)
{
    send(SCI_SETFIRSTVISIBLELINE,
        std::clamp<Offset>(line, 0, send(SCI_VISIBLEFROMDOCLINE, send(SCI_GETLINECOUNT) - 1)));
    announce();
}

void EditorControl::SetDisplay(bool on)
{
    m_displayed = on;
    viewport()->setUpdatesEnabled(on);
    announce();
}

void EditorControl::SetMousePointer(MousePointer pointer)
{
    const bool wait = pointer == MousePointer::Hourglass;
    send(SCI_SETCURSOR, wait ? SC_CURSORWAIT : SC_CURSORNORMAL);
    viewport()->setCursor(wait ? Qt::WaitCursor : Qt::IBeamCursor);
}

void EditorControl::SetFocus()
{
    setFocus(Qt::OtherFocusReason);
}

void EditorControl::setReadOnly(bool on)
{
    m_readOnly = on;
    send(SCI_SETREADONLY, on);
    emit readOnlyChanged(on);
}

void EditorControl::setSavePoint()
{
    endUndoStep();
    send(SCI_SETSAVEPOINT);
    announce();
}

bool EditorControl::isAtSavePoint() const
{
    return send(SCI_GETMODIFY) == 0;
}

} // namespace kevra
