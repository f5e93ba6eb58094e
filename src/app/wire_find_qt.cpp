// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/wiring_qt.h"
#include "colour/recolouring.h"
#include "find/find_dialog.h"
#include "find/multi_dialog.h"
#include "text/flag_guard.h"

#include <QtGui/QShortcut>

#include <algorithm>

namespace kevra {

namespace {

/// The document when other commands write its file.
class OpenDocumentQt : public OpenDocument {
public:
    explicit OpenDocumentQt(Application &app)
        : m_app(app)
    {
    }

    [[nodiscard]] bool hasUnsavedChangesOf(const std::string &path) const override
    {
        return isDocument(path) && !m_app.file.holds(m_app.mainWindow().document().Text());
    }

    void fileWritten(const std::string &path) override
    {
        if (!isDocument(path))
            return;
        auto opened = m_app.file.read(m_app.document.currentPath);
        if (!opened)
            return;
        auto &document = m_app.mainWindow().document();
        const FlagGuard busy(m_app.document.busyLoadingOrSaving);
        const auto view = document.FirstVisibleLine();
        const auto line = document.GetLineFromChar(document.Selection().end);
        document.Replace({0, document.Length()}, opened->decoded.text);
        recolourInserted(document, {0, document.Length()}, m_app.document);
        document.SetSelStart(document.lineRange(std::min(line, document.lineCount() - 1)).start);
        document.SetFirstVisibleLine(view);
        document.setSavePoint();
        m_app.file.take(std::move(*opened));
        m_app.document.unsaved = false;
        m_app.mainWindow().refreshDocumentStatus();
    }

private:
    /// Also under another name.
    [[nodiscard]] bool isDocument(const std::string &path) const
    {
        const auto &current = m_app.document.currentPath;
        if (current.empty() || !m_app.file.owns(current))
            return false;
        const auto mine = m_app.files.stamp(current);
        return path == current || (mine && mine == m_app.files.stamp(path));
    }

    Application &m_app;
};

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
    auto *dialog = new FindDialog(document, app.document, app.messages, &app.mainWindow());
    dialog->setHitPlace([&document] { return hitOnScreen(document); });
    dialog->setMayEdit([&document] { return !document.isReadOnly(); });
    return dialog;
}

void findNext(Application &app)
{
    dynamic_cast<FindDialog &>(app.window(SecondaryWindow::Find)).commands().findNext();
}

} // namespace

void wireFind(Application &app)
{
    app.makesWindow(SecondaryWindow::Find, [&app] { return makeFindDialog(app); });
    app.commands.bind("mfind", [&app] { app.showWindow(SecondaryWindow::Find); });
    QObject::connect(new QShortcut(QKeySequence(Qt::Key_F3), &app.mainWindow()), &QShortcut::activated,
        &app.mainWindow(), [&app] { findNext(app); });

    auto &open = app.keep<OpenDocumentQt>(app);
    app.makesWindow(SecondaryWindow::MultiFind, [&app, &open] {
        return new MultiDialog(app.files, open, app.messages, app.fileDialogs, &app.mainWindow());
    });
    app.commands.bind("mmulti", [&app] { app.showWindow(SecondaryWindow::MultiFind); });
}

} // namespace kevra
