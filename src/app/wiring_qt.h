// SPDX-License-Identifier: GPL-3.0-or-later
// Each subsystem is connected to the main window in a file of its own: it creates its commands with
// Application::keep, binds its menu items, and says how its windows are made with Application::makesWindow.
// All run once, right after the main window exists and before anything is shown, in this order.
#pragma once

#include <initializer_list>
#include <string_view>

class QWidget;

namespace kevra {

class Application;

void wireEditing(Application &app); ///< undo, clipboard, select all, word wrap, print, tool sets, fonts
void wireLines(Application &app); ///< the commands on lines, Keep Indentation
void wireFiles(Application &app);
void wireColour(Application &app);
void wireChecker(Application &app);
void wireFindings(Application &app); ///< what the analysis says of scripts
void wireFind(Application &app);
void wirePreview(Application &app);
void wireBeside(Application &app); ///< the page beside the text
void wireImages(Application &app);
void wireSettings(Application &app); ///< also the external program
void wirePad(Application &app);
void wireNavigation(Application &app); ///< recent files, a line by its number
/// Last: its buttons are enabled where their commands have been bound by then.
void wireSnippetPanels(Application &app);

/// The keys of these menu items work in `window` too.
void shareKeys(Application &app, QWidget &window, std::initializer_list<std::string_view> items);

} // namespace kevra
