// SPDX-License-Identifier: GPL-3.0-or-later
// Shows every page of a folder in the browser window over the real web engine, clicks on it, goes back to the
// text, and prints what the page has achieved, one line a page:
//   NAME followed=N read=N windows=N dialogs=N stall=MS back=MS queued=MS ended=yes|no own=MB page=MB
//   clip=kept|changed title=TEXT
// stall: how long an event had to wait; back: from the click on VIEW TEXT to the text, queued: how much of
// that the program was ready and had no processor; own, page: what the editor and the page's processes grew
// by at most. Usage: hostile_pages FOLDER [remote]
#include "e2e/hostile/engine_processes.h"
#include "fakes/document_fixture.h"
#include "fakes/preview_records.h"
#include "preview/browser_control_qt.h"
#include "preview/browser_window.h"
#include "preview/preview_commands.h"
#include "storage/file_store_posix.h"

#include <QtTest/QTest>
#include <QtWidgets/QtWidgets>

#include <csignal>
#include <cstdio>
#include <thread>

using namespace kevra;

namespace {

constexpr int settleTime = 1100; ///< ms; the pages' timers are below a second
constexpr int patientTime = 4000; ///< ms; for pages that do much
constexpr int floodTime = 2000; ///< ms; for pages that never stop
constexpr auto secret = "TOP-SECRET";
const QString ofTheUser = "what the user has copied";

/// In milliseconds: how long this thread has waited for a processor that others had.
qint64 queued()
{
    QFile statistics("/proc/self/schedstat");
    if (!statistics.open(QIODevice::ReadOnly))
        return 0;
    return statistics.readAll().split(' ').value(1).toLongLong() / 1'000'000;
}

class Stage : private PreviewWindows {
public:
    Stage(const QString &folder, Remote remote)
        : m_folder(folder)
    {
        m_control.setCommands(m_commands);
        QObject::connect(
            &m_window, &BrowserWindow::textAsked, &m_window, [this] { m_commands.BackToText(); });
        m_control.setRemote(remote);
        QObject::connect(&m_closer, &QTimer::timeout, &m_closer, [this] { closeDialog(); });
        m_closer.start(20);
        m_window.resize(900, 700);
        startEngine();
    }

    void play(const QString &page);
    [[nodiscard]] QString title() { return view() ? view()->property("title").toString() : QString(); }

private:
    [[nodiscard]] QWidget *view()
    {
        return m_window.findChild<QWidget *>("wb1")->findChild<QWidget *>({}, Qt::FindDirectChildrenOnly);
    }
    void startEngine();
    [[nodiscard]] QSet<int> pageProcesses() const { return engineProcesses() - m_helpers; }
    void show(const std::string &text);
    void watch(int time);
    void watchMemory();
    void click();
    struct Way {
        qint64 time = 0; ///< ms from the click to the text
        qint64 queued = 0;
    };
    /// Clicks on VIEW TEXT as the display would, whatever the program is doing.
    [[nodiscard]] Way clickBack();
    /// Ends the processes of the page as a crash would. False when the user is not told.
    [[nodiscard]] bool crash(const QSet<int> &processes);
    void closeDialog();

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
    QTimer m_closer;
    QSet<int> m_helpers; ///< what is left of the engine without a page
    int m_dialogs = 0;
    int m_followed = 0;
    int m_read = 0;
    int m_windows = 0;
    int m_pageMemory = 0;
    qint64 m_stall = 0;
};

void Stage::closeDialog()
{
    if (auto *box = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
        ++m_dialogs;
        box->reject();
    }
}

void Stage::startEngine()
{
    show("nothing");
    watch(settleTime);
    m_commands.BackToText();
    watch(settleTime / 2);
    m_helpers = engineProcesses();
}

void Stage::show(const std::string &text)
{
    m_fixture.document.LoadText(text);
    m_fixture.state.currentPath = (m_folder + "/page.htm").toStdString();
    m_commands.ViewPage();
}

void Stage::watch(int time)
{
    QElapsedTimer clock;
    for (clock.start(); clock.elapsed() < time;) {
        QElapsedTimer step;
        step.start();
        QTest::qWait(30);
        m_stall = std::max(m_stall, step.elapsed() - 30);
        watchMemory();
        const auto address = view()->property("url").toUrl();
        m_followed
            = std::max(m_followed, address.isEmpty() || address.fileName() == "kevratemp.html" ? 0 : 1);
        m_read = std::max(m_read, title().contains(secret) ? 1 : 0);
        int shown = 0;
        for (const auto *window : QApplication::topLevelWidgets())
            shown += window->isVisible() && window != &m_window && window != &m_main
                && !qobject_cast<const QDialog *>(window);
        m_windows = std::max(m_windows, shown);
    }
}

void Stage::watchMemory()
{
    int now = 0;
    for (const int process : pageProcesses())
        now += memoryOf(QString::number(process), "RssAnon:")
            + memoryOf(QString::number(process), "RssShmem:");
    m_pageMemory = std::max(m_pageMemory, now);
}

void Stage::click()
{
    auto *inner = view()->focusProxy() ? view()->focusProxy() : view();
    QTest::mouseClick(inner, Qt::LeftButton, {}, {40, 40});
}

Stage::Way Stage::clickBack()
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

bool Stage::crash(const QSet<int> &processes)
{
    m_fixture.messages.shown.clear();
    for (const int process : processes)
        ::kill(process, SIGKILL);
    return QTest::qWaitFor(
        [this] { return m_main.isVisible() && m_fixture.messages.shown.size() == 1; }, 3000);
}

void Stage::play(const QString &page)
{
    QFile file(page);
    if (!file.open(QIODevice::ReadOnly))
        return;
    m_dialogs = m_followed = m_read = m_windows = m_pageMemory = 0;
    m_stall = 0;
    const auto name = QFileInfo(page).baseName();
    const int time = name.startsWith("flood")         ? floodTime
        : name.startsWith("realm") || name == "shown" ? patientTime
                                                      : settleTime;
    const int before = memoryOf("self", "VmRSS:");
    forgetPeak();
    QGuiApplication::clipboard()->setText(ofTheUser);
    show(file.readAll().toStdString());
    // On a busy machine a page takes its time to start; what it does is counted from there.
    std::ignore = QTest::qWaitFor([this] { return !pageProcesses().isEmpty() && !title().isEmpty(); }, 10000);
    watch(settleTime / 2);
    click();
    if (name.startsWith("help"))
        m_commands.helpFromBrowser(); // its page is missing
    watch(time);
    // The parts of a page that means no harm come as fast as the machine lets them.
    if (name == "shown")
        std::ignore = QTest::qWaitFor([this] { return title().endsWith("frame"); }, 10000);
    const auto processes = pageProcesses();
    const auto said = title().toUtf8().toPercentEncoding();
    // A page that took too much has been ended before.
    bool good = !processes.isEmpty() || m_main.isVisible();
    if (name == "killed")
        good = good && crash(processes);
    const auto back = clickBack();
    const bool ended = QTest::qWaitFor([&] { return !pageProcesses().intersects(processes); }, 2000);
    std::printf("%s followed=%d read=%d windows=%d dialogs=%d stall=%lld back=%lld queued=%lld ended=%s "
                "own=%d page=%d "
                "clip=%s title=%s\n",
        qPrintable(name), m_followed, m_read, m_windows, m_dialogs, static_cast<long long>(m_stall),
        static_cast<long long>(back.time), static_cast<long long>(back.queued), ended && good ? "yes" : "no",
        memoryOf("self", "VmHWM:") - before, m_pageMemory,
        QGuiApplication::clipboard()->text() == ofTheUser ? "kept" : "changed", said.constData());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QDir folder(application.arguments().value(1));
    Stage stage(folder.path(), application.arguments().value(2) == "remote" ? Remote::On : Remote::Off);
    for (const auto &page : folder.entryList({"*.hostile"}, QDir::Files, QDir::Name))
        stage.play(folder.filePath(page));
    return 0;
}
