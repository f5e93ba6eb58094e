// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/wiring_qt.h"
#include "desktop/text_qt.h"
#include "editor/control_layout_qt.h"
#include "editor/reveal_qt.h"
#include "find/find_dialog.h"
#include "find/hit_marks_qt.h"
#include "find/multi_dialog.h"
#include "find/open_document_file.h"

#include <QtGui/QShortcut>

#include <algorithm>

namespace kevra {

namespace {

QRect hitOnScreen(EditorControl &control)
{
    const auto hit = control.Selection();
    const auto end = control.viewport()->mapToGlobal(ControlLayout(control).bottomLeft(hit.end));
    const auto start = control.viewport()->mapToGlobal(ControlLayout(control).bottomLeft(hit.start));
    const int height = control.fontMetrics().height() * 3 / 2;
    return QRect(start, end).normalized().adjusted(0, -height, 0, 0);
}

QWidget *makeFindDialog(Application &app, WindowDocument &shown)
{
    auto &control = shown.control;
    auto *dialog = new FindDialog(shown.document, app.messages, &app.mainWindow());
    dialog->setReveal([&control] { revealCaret(control); });
    dialog->setHitPlace([&control] { return hitOnScreen(control); });
    dialog->setMayEdit([&control] { return !control.isReadOnly(); });
    dialog->onNote([&app](std::string_view text) { app.mainWindow().showNote(text); });
    auto &marks = app.keep<HitMarks>(control, [dialog] { return dialog->shownRequest(); });
    QObject::connect(dialog, &FindDialog::requestChanged, &marks, &HitMarks::refresh);
    return dialog;
}

FindDialog &findDialog(Application &app)
{
    return dynamic_cast<FindDialog &>(app.window(SecondaryWindow::Find));
}

void showFindDialog(Application &app, const EditorSurface &surface)
{
    findDialog(app).suggest(surface.SelText());
    app.showWindow(SecondaryWindow::Find);
}

class EditorViewQt : public EditorView {
public:
    EditorViewQt(Application &app, EditorControl &control)
        : m_app(app)
        , m_control(control)
    {
    }

    void setSavePoint() override { m_control.setSavePoint(); }
    void openFile(const std::string &path) override { emit m_app.mainWindow().listedFileChosen(path); }
    void goToLine(Offset line) override
    {
        m_app.mainWindow().activateWindow();
        goTo(m_control, m_control.lineRange(std::min(line, m_control.lineCount()) - 1));
    }

private:
    Application &m_app;
    EditorControl &m_control;
};

} // namespace

void wireFind(Application &app, WindowDocument &shown)
{
    app.makesWindow(SecondaryWindow::Find, [&app, &shown] { return makeFindDialog(app, shown); });
    app.commands.bind("mfind", [&app, &shown] { showFindDialog(app, shown.control); });
    const auto onKey = [&app](const QKeySequence &key, void (FindCommands::*command)()) {
        QObject::connect(new QShortcut(key, &app.mainWindow()), &QShortcut::activated, &app.mainWindow(),
            [&app, command] { (findDialog(app).commands().*command)(); });
    };
    onKey(Qt::Key_F3, &FindCommands::findNext);
    onKey(Qt::SHIFT | Qt::Key_F3, &FindCommands::findPrevious);

    auto &editor = app.keep<EditorViewQt>(app, shown.control);
    auto &open = app.keep<OpenDocumentFile>(shown.document, app.files, app.mainWindow(), editor);
    app.makesWindow(SecondaryWindow::MultiFind, [&app, &open] {
        auto *dialog = new MultiDialog(app.files, open, app.messages, app.fileDialogs, &app.mainWindow());
        QObject::connect(dialog, &MultiDialog::lineChosen, dialog,
            [&open](const std::string &path, qint64 line) { open.showLine(path, line); });
        return dialog;
    });
    app.commands.bind("mmulti", [&app] { app.showWindow(SecondaryWindow::MultiFind); });
}

} // namespace kevra
