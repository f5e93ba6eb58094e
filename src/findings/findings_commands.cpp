// SPDX-License-Identifier: GPL-3.0-or-later
#include "findings/findings_commands.h"

#include "script/fixes.h"

#include <algorithm>

namespace kevra {
namespace {

/// A position after the edits; inside one of them it moves to its end.
Offset movedBy(std::span<const script::TextEdit> edits, Offset position)
{
    Offset shift = 0;
    for (const auto &edit : edits) {
        if (edit.range.start >= position && edit.range.end > position)
            break;
        if (edit.range.end > position)
            return edit.range.start + shift + std::ssize(edit.text);
        shift += std::ssize(edit.text) - edit.range.length();
    }
    return position + shift;
}

bool isSameFinding(const script::Finding &a, const script::Finding &b)
{
    return a.rule == b.rule && a.range == b.range && a.what == b.what;
}

} // namespace

page::DocumentPlace placeOf(const DocumentState &document)
{
    const auto usual = document.scriptTools ? script::FileKind::Script : script::FileKind::Page;
    const auto &path = document.currentPath;
    return {script::fileKind(path).value_or(usual), path, {}};
}

FindingsCommands::FindingsCommands(
    EditorSurface &surface, FindingsView &view, std::function<page::DocumentPlace()> place)
    : m_surface(surface)
    , m_view(view)
    , m_place(std::move(place))
{
}

void FindingsCommands::textChanged(Offset position, Offset removed, Offset added)
{
    ++m_revision;
    // The whole text was replaced: another document.
    if (removed > 0 && m_surface.TextLength() == added)
        return forget();
    m_list.textChanged(position, removed, added);
}

void FindingsCommands::accept(std::vector<script::Finding> findings, Revision revision)
{
    if (revision != m_revision)
        return;
    m_analysed = revision;
    m_current.reset();
    m_list.replace(std::move(findings));
    m_view.showFindings();
}

void FindingsCommands::analyseNow()
{
    if (m_analysed != m_revision)
        accept(m_analysis.run(m_surface.Text(), m_place()), m_revision);
}

void FindingsCommands::listOpened()
{
    if (!m_list.known())
        analyseNow();
}

void FindingsCommands::forget()
{
    m_analysed = 0;
    m_current.reset();
    if (!m_list.known())
        return;
    m_list.forget();
    m_view.showFindings();
}

void FindingsCommands::setLevel(script::Level least)
{
    m_current.reset();
    m_list.setLevel(least);
    m_view.showFindings();
}

void FindingsCommands::goToNext()
{
    if (!m_list.known())
        analyseNow();
    visit(m_list.next(m_surface.SelStart(), m_current));
}

void FindingsCommands::goToPrevious()
{
    if (!m_list.known())
        analyseNow();
    visit(m_list.previous(m_surface.SelStart(), m_current));
}

void FindingsCommands::visit(std::optional<std::size_t> index)
{
    if (!index)
        return m_view.showNote(m_list.summary());
    goTo(*index);
    m_view.showCurrent(*index);
}

void FindingsCommands::goTo(std::size_t index)
{
    m_current = index;
    goToPlace(m_list.at(index).range.start);
    m_view.showNote(m_list.at(index).what);
}

void FindingsCommands::goToPlace(Offset position)
{
    m_surface.SetSelStart(position);
}

std::vector<OfferedFix> FindingsCommands::fixesIn(TextRange range) const
{
    std::vector<OfferedFix> offered;
    for (const auto index : m_list.touching(range))
        for (std::size_t fix = 0; fix < m_list.at(index).fixes.size(); ++fix)
            offered.push_back({index, fix});
    return offered;
}

std::vector<OfferedFix> FindingsCommands::fixesAtCaret()
{
    analyseNow();
    const auto selection = m_surface.Selection();
    auto offered = fixesIn(selection);
    if (!offered.empty())
        return offered;
    const auto text = m_surface.Text();
    const auto before = text.substr(0, static_cast<std::size_t>(selection.start)).rfind('\n');
    const auto lineEnd = text.find('\r', static_cast<std::size_t>(selection.start));
    return fixesIn({before == text.npos ? 0 : static_cast<Offset>(before) + 1,
        lineEnd == text.npos ? std::ssize(text) : static_cast<Offset>(lineEnd)});
}

void FindingsCommands::applyFix(OfferedFix offered)
{
    auto finding = m_list.at(offered.finding);
    if (m_analysed != m_revision) {
        analyseNow();
        std::size_t index = 0;
        while (index < m_list.size() && !isSameFinding(m_list.at(index), finding))
            ++index;
        if (index == m_list.size() || m_list.at(index).fixes.size() <= offered.fix)
            return m_view.showNote("The text has changed; this fix does not apply any more.");
        finding = m_list.at(index);
    }
    m_view.applyEdit(editOf(finding.fixes[offered.fix], m_surface.Text(), m_surface.Selection()));
    analyseNow();
}

Offset FindingsCommands::lineOf(std::size_t index) const
{
    return m_surface.GetLineFromChar(m_list.at(index).range.start) + 1;
}

std::string FindingsCommands::lineText(std::size_t index) const
{
    return findingLine(m_list.at(index), lineOf(index));
}

LineEdit editOf(const script::Fix &fix, std::string_view text, TextRange selection)
{
    const TextRange range{fix.edits.front().range.start, fix.edits.back().range.end};
    auto edits = fix.edits;
    for (auto &edit : edits)
        edit.range = {edit.range.start - range.start, edit.range.end - range.start};
    const auto part
        = text.substr(static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.length()));
    return {range, script::edited(part, edits),
        {movedBy(fix.edits, selection.start), movedBy(fix.edits, selection.end)}};
}

} // namespace kevra
