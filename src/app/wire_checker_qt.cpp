// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/wiring_qt.h"
#include "checker/checker.h"

namespace kevra {

void wireChecker(Application &app)
{
    auto &checker = app.keep<Checker>(app.mainWindow().document(), app.document, app.mainWindow());
    app.checkFinishedLine = [&checker](TextRange line) { checker.checkFinishedLine(line); };
    app.commands.bind("mrundebug", [&checker] { checker.runDebugger(); });
    const auto useLineDebugging = [&app](bool on) {
        app.document.lineDebugPreferred = app.document.lineDebugOn = on;
        app.toolSets().showLineDebugging(on);
    };
    app.commands.bind("mdodebug", [useLineDebugging] { useLineDebugging(true); });
    app.commands.bind("mnodebug", [useLineDebugging] { useLineDebugging(false); });
}

} // namespace kevra
