// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/wiring_qt.h"
#include "desktop/text_qt.h"
#include "preview/browser_control_qt.h"
#include "preview/browser_window.h"
#include "preview/message_box_reference_window.h"
#include "preview/preview_commands.h"
#include "preview/preview_records_posix.h"

#include <QtCore/QDir>
#include <QtCore/QPointer>

namespace kevra {

namespace {

/// The preview's window and commands; lives as long as the windows.
class PreviewWiring : private PreviewWindows {
public:
    PreviewWiring(Application &app, Document &document);

private:
    void bindCommands();
    QWidget *makeBrowser();
    void connectBrowser();
    [[nodiscard]] PreviewCommands &commands();
    bool hideTool(SecondaryWindow which);

    void hideFind() override { hideTool(SecondaryWindow::Find); }
    bool hideImageViewer() override;
    void hideMain() override { m_app.mainWindow().hide(); }
    void showMain() override;
    void showBrowserWindow() override;
    void hideBrowserWindow() override { m_window->hide(); }
    void setLinkTarget(const std::string &text) override
    {
        m_window->setLinkTarget(QString::fromStdString(text));
    }

    Application &m_app;
    Document &m_document;
    PreviewRecordsPosix m_records;
    QPointer<BrowserWindow> m_window; ///< owned by the application
    std::unique_ptr<BrowserControlQt> m_control;
    std::unique_ptr<PreviewCommands> m_commands;
};

PreviewWiring::PreviewWiring(Application &app, Document &document)
    : m_app(app)
    , m_document(document)
    , m_records(app.folders.autosave + "/pages")
{
    PreviewFile(app.files, app.backups, m_records).removeLeftPages();
    app.makesWindow(SecondaryWindow::Browser, [this] { return makeBrowser(); });
    app.makesWindow(SecondaryWindow::MessageBoxReference,
        [&app] { return new MessageBoxReferenceWindow(&app.mainWindow()); });
    bindCommands();
}

PreviewCommands &PreviewWiring::commands()
{
    if (!m_commands)
        static_cast<void>(m_app.window(SecondaryWindow::Browser));
    return *m_commands;
}

void PreviewWiring::bindCommands()
{
    auto &registry = m_app.commands;
    for (const char *button : {"bview", "bview2"})
        registry.bind(button, [this] { commands().ViewPage(); });
    registry.bind("mcallhelp", [this] { commands().ShowHelp(); });
    registry.bind("mvbsinfo", [this] { commands().ShowScriptReference(); });
    registry.bind("mmsgboxref", [this] { m_app.showWindow(SecondaryWindow::MessageBoxReference); });
    m_app.removePreviewPage = [this] {
        if (m_commands)
            commands().removePreviewPage();
    };
}

QWidget *PreviewWiring::makeBrowser()
{
    // Without the main window as parent, so that it stays when that one is hidden.
    m_window = new BrowserWindow;
    m_app.mainWindow().addTitled(m_window);
    m_control = std::make_unique<BrowserControlQt>(*m_window);
    m_commands = std::make_unique<PreviewCommands>(PreviewPorts{m_document, m_app.applicationState,
        m_app.files, m_app.backups, m_records, m_app.messages, m_app.mainWindow(), *this, *m_control,
        [](const std::string &name) { return assetPath(name); }, pathBytes(QDir::homePath())});
    m_control->setCommands(commands());
    connectBrowser();
    return m_window;
}

void PreviewWiring::connectBrowser()
{
    auto *window = m_window.data();
    const auto on = [&](auto signal, auto step) { QObject::connect(window, signal, window, step); };
    on(&BrowserWindow::textAsked, [this] { commands().BackToText(); });
    on(&BrowserWindow::saveAsAsked, [this] { m_app.sessionFiles().saveAs(); });
    on(&BrowserWindow::quitAsked, [this] { m_app.quit().requestQuit(); });
    on(&BrowserWindow::refreshAsked, [this] { commands().refresh(); });
    on(&BrowserWindow::helpAsked, [this] { commands().helpFromBrowser(); });
    on(&BrowserWindow::referenceAsked, [this] { commands().referenceFromBrowser(); });
    on(&BrowserWindow::firstShown, [this] { commands().browserFirstShown(); });
    on(&BrowserWindow::zoomAsked, [this](int steps) { m_control->zoomBy(steps); });
    on(&BrowserWindow::findAsked,
        [this](const QString &text, bool backward) { m_control->find(text, backward); });
    on(&BrowserWindow::sizeAsked, [this](const QSize &size) {
        m_control->resizeTo(size.width(), size.height());
        m_window->setPageSize(size);
    });
    on(&BrowserWindow::remoteChanged, [this](bool remote) {
        m_control->setRemote(remote ? Remote::On : Remote::Off);
        commands().refresh();
    });
}

bool PreviewWiring::hideTool(SecondaryWindow which)
{
    auto *tool = m_app.visibleWindow(which);
    if (!tool)
        return false;
    tool->hide();
    tool->lower();
    return true;
}

bool PreviewWiring::hideImageViewer()
{
    if (!hideTool(SecondaryWindow::ImageViewer))
        return false;
    m_app.mainWindow().setControlVisible("fr1", false);
    return true;
}

void PreviewWiring::showMain()
{
    m_app.mainWindow().show();
    m_app.mainWindow().activateWindow();
}

void PreviewWiring::showBrowserWindow()
{
    const bool again = m_window->isVisible();
    m_window->show();
    if (!again) {
        m_window->raise();
        m_window->activateWindow();
    }
}

} // namespace

void wirePreview(Application &app, WindowDocument &shown)
{
    app.keep<PreviewWiring>(app, shown.document);
}

} // namespace kevra
