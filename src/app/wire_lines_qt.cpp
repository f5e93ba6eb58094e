// SPDX-License-Identifier: GPL-3.0-or-later
// The commands on lines, and Keep Indentation.
#include "app/application_qt.h"
#include "app/wiring_qt.h"
#include "editor/editor_control_qt.h"
#include "editor/line_edits.h"
#include "settings/option_switch.h"

namespace kevra {
void wireLines(Application &app, WindowDocument &shown)
{
    auto &t1 = shown.control;
    app.commands.bind("mcomment", [&t1, &state = shown.document.state] {
        const auto marks = commentMarks(state.currentExtension, state.scriptTools);
        t1.apply(toggledComments(t1, t1.anchorAndCaret(), marks));
    });
    app.commands.bind("mlineup", [&t1] { t1.apply(movedLines(t1, t1.anchorAndCaret(), Move::Up)); });
    app.commands.bind("mlinedown", [&t1] { t1.apply(movedLines(t1, t1.anchorAndCaret(), Move::Down)); });
    app.commands.bind("mlinecopy", [&t1] { t1.apply(duplicatedLines(t1, t1.anchorAndCaret())); });
    app.commands.bind("mlinedelete", [&t1] { t1.apply(deletedLines(t1, t1.anchorAndCaret())); });
    auto &keepIndentation = app.keep<OptionSwitch>(app.settingsStore, app.toolSets(), Option::KeepIndentation,
        [&t1](bool on) { t1.setKeepIndentation(on); });
    app.commands.bind("mkeepindent", [&keepIndentation] { keepIndentation.toggle(); });
    keepIndentation.load();
}

} // namespace kevra
