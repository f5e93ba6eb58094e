// SPDX-License-Identifier: GPL-3.0-or-later
// The commands on lines, and Keep Indentation with its stored setting.
#include "app/application_qt.h"
#include "app/wiring_qt.h"
#include "editor/editor_control_qt.h"
#include "editor/line_edits.h"
#include "settings/options.h"

namespace kevra {
namespace {

void keepIndentation(Application &app, bool on)
{
    app.mainWindow().document().setKeepIndentation(on);
    app.toolSets().showOption(Option::KeepIndentation, on);
}

} // namespace

void wireLines(Application &app)
{
    auto &t1 = app.mainWindow().document();
    app.commands.bind("mcomment", [&app, &t1] {
        const auto marks = commentMarks(app.document.state.currentExtension, app.document.state.scriptTools);
        t1.apply(toggledComments(t1, t1.anchorAndCaret(), marks));
    });
    app.commands.bind("mlineup", [&t1] { t1.apply(movedLines(t1, t1.anchorAndCaret(), Move::Up)); });
    app.commands.bind("mlinedown", [&t1] { t1.apply(movedLines(t1, t1.anchorAndCaret(), Move::Down)); });
    app.commands.bind("mlinecopy", [&t1] { t1.apply(duplicatedLines(t1, t1.anchorAndCaret())); });
    app.commands.bind("mlinedelete", [&t1] { t1.apply(deletedLines(t1, t1.anchorAndCaret())); });
    app.commands.bind("mkeepindent", [&app, &t1] {
        keepIndentation(app, !t1.keepsIndentation());
        storeOption(app.store, Option::KeepIndentation, t1.keepsIndentation());
    });
    keepIndentation(app, storedOption(app.store, Option::KeepIndentation));
}

} // namespace kevra
