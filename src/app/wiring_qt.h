// SPDX-License-Identifier: GPL-3.0-or-later
// Each subsystem has a file that connects it to the main window and its document: it creates the commands
// with Application::keep, binds menu items to them, and sets how windows are made with
// Application::makesWindow. The functions run once, in this order, when the main window has been created and
// is not yet visible.
#pragma once

#include <initializer_list>
#include <string_view>

class QWidget;

namespace kevra {

class Application;
class WindowDocument;

void wireEditing(Application &app,
    WindowDocument &shown); ///< undo, clipboard, select all, word wrap, print, tool sets, fonts
void wireLines(Application &app, WindowDocument &shown); ///< the commands on lines, Keep Indentation
void wireFiles(Application &app, WindowDocument &shown);
void wireColour(Application &app, WindowDocument &shown);
void wireChecker(Application &app, WindowDocument &shown);
void wireFindings(Application &app, WindowDocument &shown); ///< the analysis of scripts and pages
void wireFind(Application &app, WindowDocument &shown);
void wirePreview(Application &app, WindowDocument &shown);
void wireBeside(Application &app, WindowDocument &shown); ///< the page beside the text
void wireImages(Application &app, WindowDocument &shown);
void wireSettings(Application &app, WindowDocument &shown); ///< also the external program
void wirePad(Application &app, WindowDocument &shown);
void wireNavigation(Application &app, WindowDocument &shown); ///< recent files, a line by its number
/// Last, because it enables the buttons whose commands are bound.
void wireSnippetPanels(Application &app, WindowDocument &shown);

/// Makes the shortcuts of these menu items work in `window` too.
void shareShortcuts(Application &app, QWidget &window, std::initializer_list<std::string_view> items);

} // namespace kevra
