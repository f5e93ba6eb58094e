// SPDX-License-Identifier: GPL-3.0-or-later
// Getting about: the recent files under the File menu, and a line by its number.
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

/// The submenu `mrecent`; what is gone from the disk is not offered.
class RecentMenu : public QObject {
public:
    explicit RecentMenu(Application &app)
        : m_app(app)
        , m_recent(app.store)
        , m_menu(new QMenu("&Recent Files", &app.mainWindow()))
    {
        m_menu->setObjectName("mrecent");
        auto *files = app.mainWindow().menus().menu("mfile");
        auto *exit = app.mainWindow().menus().action("mexit");
        files->insertMenu(exit, m_menu);
        files->insertSeparator(exit);
        connect(files, &QMenu::aboutToShow, this, [this] { fill(); });
        connect(&app.mainWindow(), &MainWindow::documentNamed, this,
            [this] { m_recent.add(m_app.document.state.currentPath); });
    }

private:
    void fill()
    {
        m_menu->clear();
        for (const auto &path : m_recent.paths())
            if (m_app.files.fileExists(path))
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
    QMenu *m_menu; ///< the window's
};

void goToLine(Application &app)
{
    auto &document = app.mainWindow().document();
    const auto now = document.GetLineFromChar(document.Selection().end) + 1;
    bool chosen = false;
    const int line = QInputDialog::getInt(&app.mainWindow(), "Go to Line",
        "Line number:", static_cast<int>(now), 1, static_cast<int>(document.lineCount()), 1, &chosen);
    if (!chosen)
        return;
    const auto start = document.lineRange(line - 1).start;
    goTo(document, {start, start});
}

} // namespace

void wireNavigation(Application &app)
{
    app.keep<RecentMenu>(app);
    app.commands.bind("mgoto", [&app] { goToLine(app); });
}

} // namespace kevra
