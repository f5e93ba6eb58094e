// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/wiring_qt.h"
#include "pad/pad_window.h"

namespace kevra {

void wirePad(Application &app, WindowDocument &shown)
{
    app.makesWindow(SecondaryWindow::Pad, [&app, &shown] {
        auto *pad = new PadWindow(shown.control, app.clipboard, app.applicationState, &app.mainWindow());
        shareShortcuts(app, *pad, {"mfind", "msample"});
        return pad;
    });
    app.commands.bind("mpad", [&app] { app.showWindow(SecondaryWindow::Pad); });
}

} // namespace kevra
