// SPDX-License-Identifier: GPL-3.0-or-later
// The recent files in the File menu, and Go to Line.
#include "app/application_qt.h"
#include "app/main_menu_qt.h"
#include "app/wiring_qt.h"
#include "desktop/text_qt.h"
#include "document/recent_files.h"
#include "editor/reveal_qt.h"

#include <QtWidgets/QInputDialog>
#include <QtWidgets/QMenu>

namespace kevra {
namespace {

/// The submenu `mrecent`.
class RecentMenu : public QObject {
public:
    RecentMenu(Application &app, const DocumentState &state)
        : m_app(app)
        , m_recent(app.settingsStore)
        , m_menu(new QMenu("&Recent Files", &app.mainWindow()))
    {
        m_menu->setObjectName("mrecent");
        auto *files = app.mainWindow().menus().menu("mfile");
        auto *exit = app.mainWindow().menus().action("mexit");
        files->insertMenu(exit, m_menu);
        files->insertSeparator(exit);
        connect(files, &QMenu::aboutToShow, this, [this] { fill(); });
        connect(&app.mainWindow(), &MainWindow::documentNamed, this,
            [this, &state] { m_recent.add(state.currentPath); });
    }

private:
    void fill()
    {
        m_menu->clear();
        for (const auto &path : m_recent.existing(m_app.files))
            offer(path);
        m_menu->setEnabled(!m_menu->isEmpty());
        m_menu->addSeparator();
        m_menu->addAction("&Clear This List", this, [this] { m_recent.forgetAll(); })
            ->setObjectName("mclearrecent");
    }

    void offer(const std::string &path)
    {
        const auto number = m_menu->actions().size() + 1;
        auto shown = pathText(path);
        auto *action = m_menu->addAction(QString("&%1  %2").arg(number % 10).arg(shown.replace('&', "&&")));
        connect(action, &QAction::triggered, this,
            [this, path] { emit m_app.mainWindow().listedFileChosen(path); });
    }

    Application &m_app;
    RecentFiles m_recent;
    QMenu *m_menu; ///< owned by the window
};

void goToLine(MainWindow &window, EditorControl &control)
{
    const auto now = control.GetLineFromChar(control.Selection().end) + 1;
    bool chosen = false;
    const int line = QInputDialog::getInt(&window, "Go to Line", "Line number:", static_cast<int>(now), 1,
        static_cast<int>(control.lineCount()), 1, &chosen);
    if (!chosen)
        return;
    const auto start = control.lineRange(line - 1).start;
    goTo(control, {start, start});
}

} // namespace

void wireNavigation(Application &app, WindowDocument &shown)
{
    app.keep<RecentMenu>(app, shown.document.state);
    app.commands.bind("mgoto", [&app, &shown] { goToLine(app.mainWindow(), shown.control); });
}

} // namespace kevra
