// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/edit_commands.h"
#include "app/font_frame_panel.h"
#include "app/information_window.h"
#include "app/main_menu_qt.h"
#include "app/printing_qt.h"
#include "app/wiring_qt.h"

#include <QtGui/QAction>

namespace kevra {

namespace {

void wireDocument(Application &app, WindowDocument &shown)
{
    auto &window = app.mainWindow();
    auto &t1 = shown.control;
    auto &edit = app.keep<EditCommands>(shown.document, window);
    app.commands.bind("mundo", [&t1] { t1.undo(); });
    app.commands.bind("mredo", [&t1] { t1.redo(); });
    app.commands.bind("mcut", [&t1] { t1.cut(); });
    app.commands.bind("mcopy", [&t1] { t1.copy(); });
    app.commands.bind("mpaste", [&t1] { t1.paste(); });
    app.commands.bind("mselall", [&edit] { edit.selectAll(); });
    // One undo step; the clipboard is not changed.
    app.commands.bind("mclear", [&t1] { t1.replaceAsUser({0, t1.TextLength()}, {}); });
    app.commands.bind("mwrap", [&edit, &window] {
        edit.toggleWrap();
        window.syncLineNumbers();
    });
    auto &printing = app.keep<PrintingQt>(t1);
    app.commands.bind("mprint", [&printing, &app] { print(printing, app.messages); });
    QObject::connect(&t1, &EditorControl::changed, &window, [&edit] { edit.textChanged(); });
}

void wireTools(Application &app, EditorControl &t1)
{
    auto &tools = app.toolSets();
    app.commands.bind("mscrshow", [&tools] { tools.showScriptTools(); });
    app.commands.bind("mwebback", [&tools] { tools.showWebTools(); });
    app.commands.bind("mhidetools", [&tools] { tools.hideTools(); });
    app.commands.bind("mshowtools", [&tools] { tools.showTools(); });
    QObject::connect(&app.mainWindow().fonts(), &FontFrame::fontChosen, &app.mainWindow(),
        [&tools] { tools.fontChosen(); });
    // Typing continues in the text.
    QObject::connect(
        &app.mainWindow().fonts(), &FontFrame::listClosed, &app.mainWindow(), [&t1] { t1.SetFocus(); });
    // A new font for the whole text resets its colours.
    tools.onFontChanged([&app] { app.commands.run("mcolcode"); });
}

void wireProgramEnd(Application &app)
{
    app.commands.bind("mexit", [&app] { app.quit().closeRequested(); });
    QObject::connect(&app.mainWindow(), &MainWindow::closeRequested, &app.mainWindow(),
        [&app] { app.quit().closeRequested(); });
}

} // namespace

void wireEditing(Application &app, WindowDocument &shown)
{
    wireDocument(app, shown);
    wireTools(app, shown.control);
    wireProgramEnd(app);
    app.makesWindow(
        SecondaryWindow::Information, [&app] { return new InformationWindow(&app.mainWindow()); });
    app.commands.bind("mabout", [&app] { app.showWindow(SecondaryWindow::Information); });
}

} // namespace kevra
