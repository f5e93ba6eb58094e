// SPDX-License-Identifier: GPL-3.0-or-later
// Hostile pages in the browser window. Usage: hostile_pages FOLDER [remote]
#include "e2e/hostile/hostile_stage.h"
#include "fakes/document_fixture.h"
#include "fakes/preview_records.h"
#include "preview/browser_control_qt.h"
#include "preview/browser_window.h"
#include "preview/preview_commands.h"
#include "storage/file_store_posix.h"

#include <thread>

using namespace kevra;

namespace {

class Stage : public HostileStage, private PreviewWindows {
public:
    Stage(const QString &folder, Remote remote)
        : m_folder(folder)
    {
        m_control.setCommands(m_commands);
        QObject::connect(
            &m_window, &BrowserWindow::textAsked, &m_window, [this] { m_commands.BackToText(); });
        m_control.setRemote(remote);
        m_window.resize(900, 700);
    }

private:
    QWidget *view() override
    {
        return m_window.findChild<QWidget *>("wb1")->findChild<QWidget *>({}, Qt::FindDirectChildrenOnly);
    }
    bool isEditors(const QWidget *window) override { return window == &m_window || window == &m_main; }
    void show(const std::string &text) override
    {
        m_fixture.messages.shown.clear();
        m_fixture.document.LoadText(text);
        m_fixture.state.currentPath = (m_folder + "/page.htm").toStdString();
        m_commands.ViewPage();
    }
    void use(const QString &name) override
    {
        QTest::mouseClick(page(), Qt::LeftButton, {}, {40, 40});
        if (name.startsWith("help"))
            m_commands.helpFromBrowser(); // its page is missing
    }
    bool hasEnded() override { return m_main.isVisible() && m_fixture.messages.shown.size() == 1; }
    Way leave() override;

    void hideFind() override { }
    bool hideImageViewer() override { return false; }
    void hideMain() override { m_main.hide(); }
    void showMain() override { m_main.show(); }
    void showBrowserWindow() override { m_window.show(); }
    void hideBrowserWindow() override { m_window.hide(); }
    void setLinkTarget(const std::string &text) override
    {
        m_window.setLinkTarget(QString::fromStdString(text));
    }

    QString m_folder;
    QWidget m_main;
    DocumentFixture m_fixture;
    FileStorePosix m_files{m_folder.toStdString(), m_folder.toStdString()};
    DocumentFile m_file{m_files, m_fixture.backups};
    BrowserWindow m_window;
    BrowserControlQt m_control{m_window};
    FakePreviewRecords m_records;
    PreviewCommands m_commands{
        PreviewPorts{DocumentParts{m_fixture.document, m_fixture.state, m_file, m_fixture.keeper},
            m_fixture.application, m_files, m_fixture.backups, m_records, m_fixture.messages, m_fixture.main,
            *this, m_control, [](const std::string &name) { return name; }, "/root"}};
};

/// Clicks on VIEW TEXT as the display would, whatever the program is doing.
HostileStage::Way Stage::leave()
{
    auto *button = m_window.findChild<QPushButton *>("btext");
    const QPointF place(button->rect().center());
    const auto global = button->mapToGlobal(place);
    QElapsedTimer clock;
    const auto before = queued();
    std::jthread hand([&] {
        QThread::msleep(70);
        clock.start();
        for (const auto kind : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
            QCoreApplication::postEvent(
                button, new QMouseEvent(kind, place, global, Qt::LeftButton, Qt::LeftButton, {}));
    });
    // A page that went by itself is clicked away as well.
    bool answered = false;
    const auto hears = QObject::connect(&m_window, &BrowserWindow::textAsked, [&] { answered = true; });
    std::ignore = QTest::qWaitFor([&] { return answered && m_main.isVisible(); }, 60000);
    QObject::disconnect(hears);
    QCoreApplication::processEvents();
    return {clock.elapsed(), queued() - before};
}

} // namespace

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const auto folder = application.arguments().value(1);
    Stage stage(folder, application.arguments().value(2) == "remote" ? Remote::On : Remote::Off);
    stage.startEngine();
    stage.playAll(QDir(folder));
    return 0;
}
