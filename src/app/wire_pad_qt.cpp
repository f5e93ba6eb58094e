// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/wiring_qt.h"
#include "pad/pad_window.h"

namespace kevra {

void wirePad(Application &app)
{
    app.makesWindow(SecondaryWindow::Pad, [&app] {
        return new PadWindow(app.mainWindow().document(), app.clipboard, app.state, &app.mainWindow());
    });
    app.commands.bind("mpad", [&app] { app.showWindow(SecondaryWindow::Pad); });
}

} // namespace kevra
