// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/control_layout_qt.h"

#include <algorithm>

namespace kevra {

using Sci = QsciScintillaBase;

TextRange ControlLayout::textInView() const
{
    const auto first = m_control.FirstVisibleLine();
    const auto last = m_control.send(Sci::SCI_DOCLINEFROMVISIBLE, first + rowsInView() + 1);
    const auto lineCount = m_control.send(Sci::SCI_GETLINECOUNT);
    const auto start
        = m_control.send(Sci::SCI_POSITIONFROMLINE, m_control.send(Sci::SCI_DOCLINEFROMVISIBLE, first));
    const auto end = m_control.send(Sci::SCI_GETLINEENDPOSITION, std::min<Offset>(last, lineCount - 1));
    return {m_control.breaks().toText(start), m_control.breaks().toText(end)};
}

Offset ControlLayout::topLine() const
{
    const auto line = m_control.send(Sci::SCI_DOCLINEFROMVISIBLE, m_control.FirstVisibleLine());
    return line - m_control.breaks().countBefore(m_control.send(Sci::SCI_POSITIONFROMLINE, line));
}

Offset ControlLayout::rowsInView() const
{
    return m_control.send(Sci::SCI_LINESONSCREEN);
}

Offset ControlLayout::firstRow(Offset line) const
{
    return m_control.send(Sci::SCI_VISIBLEFROMDOCLINE, m_control.controlLine(line));
}

Offset ControlLayout::rowCount(Offset line) const
{
    const auto first = m_control.controlLine(line);
    if (m_control.breaks().empty())
        return m_control.send(Sci::SCI_WRAPCOUNT, first);
    const auto last = m_control.controlLine(line + 1) - 1;
    return m_control.send(Sci::SCI_VISIBLEFROMDOCLINE, last) + m_control.send(Sci::SCI_WRAPCOUNT, last)
        - m_control.send(Sci::SCI_VISIBLEFROMDOCLINE, first);
}

TextRange ControlLayout::partAround(Offset position) const
{
    const auto &breaks = m_control.breaks();
    const auto line = m_control.send(Sci::SCI_LINEFROMPOSITION, breaks.toControl(position));
    const auto end = line + 1 < m_control.send(Sci::SCI_GETLINECOUNT)
        ? m_control.send(Sci::SCI_POSITIONFROMLINE, line + 1)
        : m_control.controlLength();
    return {breaks.toText(m_control.send(Sci::SCI_POSITIONFROMLINE, line)), breaks.toText(end)};
}

QPoint ControlLayout::bottomLeft(Offset position) const
{
    const auto place = m_control.breaks().toControl(position);
    const auto top = m_control.send(Sci::SCI_POINTYFROMPOSITION, 0, place);
    return {static_cast<int>(m_control.send(Sci::SCI_POINTXFROMPOSITION, 0, place)),
        static_cast<int>(top + m_control.send(Sci::SCI_TEXTHEIGHT, 0))};
}

Offset ControlLayout::positionAt(QPoint point) const
{
    return m_control.breaks().toText(m_control.send(Sci::SCI_POSITIONFROMPOINT, point.x(), point.y()));
}

void copyText(const EditorControl &control, std::string &copy)
{
    const auto gap = control.breaks().toText(control.SendScintilla(Sci::SCI_GETGAPPOSITION));
    copy.clear();
    copy.reserve(static_cast<std::size_t>(control.TextLength()));
    copy.append(control.Text({0, gap}));
    copy.append(control.Text({gap, control.TextLength()}));
}

} // namespace kevra
