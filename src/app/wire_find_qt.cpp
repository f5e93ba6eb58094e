// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/wiring_qt.h"
#include "desktop/text_qt.h"
#include "editor/reveal_qt.h"
#include "find/find_dialog.h"
#include "find/hit_marks_qt.h"
#include "find/multi_dialog.h"
#include "find/open_document_file.h"

#include <QtGui/QShortcut>

#include <algorithm>

namespace kevra {

namespace {

QRect hitOnScreen(EditorControl &document)
{
    const auto hit = document.Selection();
    const auto end = document.viewport()->mapToGlobal(document.bottomLeftOf(hit.end));
    const auto start = document.viewport()->mapToGlobal(document.bottomLeftOf(hit.start));
    const int height = document.fontMetrics().height() * 3 / 2;
    return QRect(start, end).normalized().adjusted(0, -height, 0, 0);
}

QWidget *makeFindDialog(Application &app)
{
    auto &document = app.mainWindow().document();
    auto *dialog = new FindDialog(document, app.document.state, app.messages, &app.mainWindow());
    dialog->setReveal([&document] { revealCaret(document); });
    dialog->setHitPlace([&document] { return hitOnScreen(document); });
    dialog->setMayEdit([&document] { return !document.isReadOnly(); });
    dialog->setTell([&app](std::string_view text) { app.mainWindow().tell(text); });
    auto &marks = app.keep<HitMarks>(document, [dialog] { return dialog->shownRequest(); });
    QObject::connect(dialog, &FindDialog::requestChanged, &marks, &HitMarks::refresh);
    return dialog;
}

FindDialog &findDialog(Application &app)
{
    return dynamic_cast<FindDialog &>(app.window(SecondaryWindow::Find));
}

void showFindDialog(Application &app)
{
    const auto selected = app.mainWindow().document().SelText();
    findDialog(app).suggest(selected);
    app.showWindow(SecondaryWindow::Find);
}

/// The file as the document, which is asked about as by the open dialog; then the line.
void showLine(Application &app, const OpenDocument &open, const std::string &path, qint64 line)
{
    auto &window = app.mainWindow();
    if (!open.isDocument(path))
        emit window.listedFileChosen(path);
    if (!open.isDocument(path))
        return;
    auto &document = window.document();
    window.activateWindow();
    goTo(document, document.lineRange(std::min<Offset>(line, document.lineCount()) - 1));
}

} // namespace

void wireFind(Application &app)
{
    app.makesWindow(SecondaryWindow::Find, [&app] { return makeFindDialog(app); });
    app.commands.bind("mfind", [&app] { showFindDialog(app); });
    const auto onKey = [&app](const QKeySequence &key, void (FindCommands::*command)()) {
        QObject::connect(new QShortcut(key, &app.mainWindow()), &QShortcut::activated, &app.mainWindow(),
            [&app, command] { (findDialog(app).commands().*command)(); });
    };
    onKey(Qt::Key_F3, &FindCommands::findNext);
    onKey(Qt::SHIFT | Qt::Key_F3, &FindCommands::findPrevious);

    auto &document = app.mainWindow().document();
    auto &open = app.keep<OpenDocumentFile>(document, app.document.state, app.document.file, app.files,
        app.mainWindow(), [&document] { document.setSavePoint(); });
    app.makesWindow(SecondaryWindow::MultiFind, [&app, &open] {
        auto *dialog = new MultiDialog(app.files, open, app.messages, app.fileDialogs, &app.mainWindow());
        QObject::connect(dialog, &MultiDialog::lineChosen, dialog,
            [&app, &open](const std::string &path, qint64 line) { showLine(app, open, path, line); });
        return dialog;
    });
    app.commands.bind("mmulti", [&app] { app.showWindow(SecondaryWindow::MultiFind); });
}

} // namespace kevra
