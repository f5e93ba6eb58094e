// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"

#include "app/font_frame_panel.h"
#include "app/information_window.h"
#include "app/wiring_qt.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QDialog>

#include <chrono>

namespace kevra {

namespace {

class AutosaveTimerQt : public AutosaveTimer {
public:
    explicit AutosaveTimerQt(QTimer &timer)
        : m_timer(timer)
    {
    }
    void start(int minutes) override { m_timer.start(std::chrono::minutes(std::min(minutes, longest))); }
    void stop() override { m_timer.stop(); }

private:
    static constexpr int longest = 24 * 60; ///< the timer counts milliseconds in an int
    QTimer &m_timer;
};

} // namespace

Application::Application(ProgramFolders programFolders)
    : folders(std::move(programFolders))
    , m_settings(settingsStore, editorOptions, applicationState, optionsShown, *this)
    , m_autosaveTimer(std::make_unique<AutosaveTimerQt>(timer1))
{
    m_documents.push_back(std::make_unique<WindowDocument>(
        WindowDocument::Shared{editorOptions, applicationState, files, backups},
        RecoveryStorePosix::Folders{folders.autosave, folders.spare}));
}

Application::~Application()
{
    m_windows.clear();
    // In reverse order: later objects may use earlier ones.
    while (!m_kept.empty())
        m_kept.pop_back();
}

void Application::start(std::string commandLine)
{
    Startup(shown().document.state, applicationState, m_settings, *this).run(std::move(commandLine));
}

MainWindow &Application::mainWindow()
{
    if (!m_mainWindow)
        createMainWindow();
    return *m_mainWindow;
}

ToolSets &Application::toolSets()
{
    if (!m_mainWindow)
        createMainWindow();
    return *m_toolSets;
}

Quit &Application::quit()
{
    if (!m_mainWindow)
        createMainWindow();
    return *m_quit;
}

SessionFiles &Application::sessionFiles()
{
    if (!m_mainWindow)
        createMainWindow();
    return *m_sessionFiles;
}

AutosaveTimer &Application::autosaveTimer()
{
    return *m_autosaveTimer;
}

FontBoxes &Application::fonts()
{
    return mainWindow().fonts();
}

void Application::createMainWindow()
{
    auto &shownDocument = shown();
    auto &document = shownDocument.document;
    document.state.autosaveWritten = false;
    applicationState.helpShowing = false;
    document.state.scriptTools = false;
    m_mainWindow = std::make_unique<MainWindow>(commands, shownDocument.takeControl());
    auto &window = *m_mainWindow;
    m_toolSets = std::make_unique<ToolSets>(document, window.lineNumbers(), window, window.fonts());
    m_quit.reset(new Quit(document, applicationState, m_settings, messages, *this));
    for (const auto wire :
        {wireEditing, wireLines, wireFiles, wireColour, wireChecker, wireFindings, wireFind, wirePreview,
            wireBeside, wireImages, wireSettings, wirePad, wireNavigation, wireSnippetPanels})
        wire(*this, shownDocument);
    m_toolSets->showWebTools();
    window.enableBoundCommands();
    checkTempFolder(applicationState, files, messages);
}

void Application::makesWindow(SecondaryWindow window, std::function<QWidget *()> make)
{
    m_makers[window] = std::move(make);
}

QWidget &Application::window(SecondaryWindow window)
{
    auto &made = m_windows[window];
    if (!made)
        made.reset(m_makers.at(window)());
    // Sets its position explicitly; otherwise Qt centres a dialog each time it is shown.
    auto *dialog = qobject_cast<QDialog *>(made.get());
    if (dialog && dialog->windowHandle() && !dialog->isVisible())
        dialog->move(dialog->pos());
    return *made;
}

QWidget *Application::visibleWindow(SecondaryWindow window) const
{
    const auto made = m_windows.find(window);
    return made != m_windows.end() && made->second->isVisible() ? made->second.get() : nullptr;
}

void Application::showWindow(SecondaryWindow which)
{
    auto &shown = window(which);
    shown.show();
    shown.raise();
    shown.activateWindow();
}

void Application::showMainWindow()
{
    auto &window = mainWindow();
    window.enableBoundCommands();
    window.show();
    window.redrawAndFocus();
}

void Application::showFirstStartNotices()
{
    auto &information = dynamic_cast<InformationWindow &>(window(SecondaryWindow::Information));
    information.showFirstStartNotices();
    QObject::connect(m_mainWindow.get(), &MainWindow::placed, &information, [&information] {
        if (information.isVisible())
            information.comeForward();
    });
}

void Application::unloadMainWindow()
{
    // Only hidden, since the call may come from its close event or an action; destroyed with this object.
    m_mainWindow->hide();
}

void Application::unloadWindow(SecondaryWindow which)
{
    if (auto *shown = visibleWindow(which))
        shown->hide();
}

void Application::exitEventLoop()
{
    QCoreApplication::exit(0);
}

} // namespace kevra
