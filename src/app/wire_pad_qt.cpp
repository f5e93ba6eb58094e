// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/wiring_qt.h"
#include "pad/pad_window.h"

namespace kevra {

void wirePad(Application &app)
{
    app.makesWindow(SecondaryWindow::Pad, [&app] {
        auto *pad = new PadWindow(app.mainWindow().document(), app.clipboard, app.state, &app.mainWindow());
        shareKeys(app, *pad, {"mfind", "msample"});
        return pad;
    });
    app.commands.bind("mpad", [&app] { app.showWindow(SecondaryWindow::Pad); });
}

} // namespace kevra
