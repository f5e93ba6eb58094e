// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tool_sets.h"

#include "app/commands.h"
#include "settings/options.h"
#include "tools/external_program.h"

#include <charconv>

namespace kevra {

namespace {

enum class Part { Control, Item, Check };

struct ToolSetRow {
    Part part;
    std::string_view name;
    bool script; ///< visible, or checked, with the script tools
    bool web;
};

constexpr ToolSetRow toolSetRows[] = {
    {Part::Control, "t2", true, false},
    {Part::Control, "tline", true, false},
    {Part::Control, "tcolumn", true, false},
    {Part::Control, "tcount", true, false},
    {Part::Control, "tlcount", true, false},
    {Part::Control, "Frame1", false, true},
    {Part::Control, "Frame2", false, false},
    {Part::Control, "frscript1", true, false},
    {Part::Control, "frscript2", false, false},
    {Part::Item, "mcolorfind", false, true},
    {Part::Item, "mtemplate", false, true},
    {Part::Item, "mimops", false, true},
    {Part::Item, "mex", false, true},
    {Part::Item, "mmsgboxref", true, false},
    {Part::Item, "mdebug", true, false},
    {Part::Check, "mscrshow", true, false},
    {Part::Check, "mwebback", false, true},
};

constexpr std::string_view panels[] = {"Frame1", "Frame2", "frscript1", "frscript2"};

void apply(ShellView &view, const ToolSetRow &row, bool on)
{
    switch (row.part) {
    case Part::Control:
        return view.setControlVisible(row.name, on);
    case Part::Item:
        return view.setItemVisible(row.name, on);
    case Part::Check:
        return view.setItemChecked(row.name, on);
    }
}

} // namespace

ToolSets::ToolSets(EditedDocument document, EditorSurface &lineNumbers, ShellView &view, FontBoxes &fonts)
    : m_surface(document.surface)
    , m_lineNumbers(lineNumbers)
    , m_state(document.state)
    , m_view(view)
    , m_fonts(fonts)
{
}

EditorFont ToolSets::chosenFont() const
{
    constexpr int standardSize = 10;
    EditorFont font{m_fonts.face(), standardSize};
    const auto size = m_fonts.size();
    std::from_chars(size.data(), size.data() + size.size(), font.size);
    return font;
}

void ToolSets::show(bool scriptTools)
{
    m_surface.SetFont(chosenFont());
    if (scriptTools)
        m_lineNumbers.SetFont(chosenFont());
    m_state.scriptTools = scriptTools;
    for (const auto &row : toolSetRows)
        apply(m_view, row, scriptTools ? row.script : row.web);
    const auto hidden = scriptTools ? ButtonFor::Web : ButtonFor::Script;
    int number = 0;
    for (const auto &row : toolRows()) {
        ++number;
        if (row.tools != ButtonFor::Both)
            m_view.setButtonVisible(number, row.tools != hidden);
    }
}

void ToolSets::showScriptTools()
{
    show(true);
}

void ToolSets::showWebTools()
{
    show(false);
}

void ToolSets::hideTools()
{
    for (const auto panel : panels)
        m_view.setControlVisible(panel, false);
}

void ToolSets::showTools()
{
    hideTools();
    m_view.setControlVisible(m_state.scriptTools ? "frscript1" : "Frame1", true);
}

void ToolSets::showOption(Option option, bool on)
{
    const auto &marks = rowOf(option).marks;
    if (!marks.onItem.empty())
        m_view.setItemChecked(marks.onItem, on);
    if (!marks.offItem.empty())
        m_view.setItemChecked(marks.offItem, !on);
    for (const auto &button : marks.buttons)
        if (button.number)
            m_view.setButtonImage(button.number, on ? button.on : button.off);
}

void ToolSets::setLineDebugging(bool on)
{
    m_state.options.lineDebug = m_state.lineDebugOn = on;
    showOption(Option::LineDebug, on);
}

void ToolSets::showProgramMenu(std::string_view text)
{
    m_view.setItemCaption("mex", programMenuCaption(text));
}

void ToolSets::reapplyFont()
{
    setDocumentFont();
    m_lineNumbers.SetFont(chosenFont());
}

void ToolSets::fontChosen()
{
    setDocumentFont();
    if (m_state.scriptTools)
        m_lineNumbers.SetFont(chosenFont());
    if (m_state.takesColour() && m_fontChanged)
        m_fontChanged();
}

void ToolSets::setDocumentFont()
{
    m_surface.SetFont(chosenFont());
    // As after selecting the whole text for it: the caret is at the top.
    m_surface.SetSelStart(0);
}

} // namespace kevra
