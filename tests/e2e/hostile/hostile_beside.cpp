// SPDX-License-Identifier: GPL-3.0-or-later
// Shows every page of a folder beside its text, over the real web engine: clicks on it, types, stops it, and
// prints what the page has achieved, in the lines that hostile_pages prints. Usage: hostile_beside FOLDER
#include "e2e/beside/stage.h"
#include "e2e/hostile/engine_processes.h"

#include <QtTest/QTest>

#include <csignal>
#include <cstdio>

using namespace kevra;

namespace {

constexpr int settleTime = 1100; ///< ms; the pages' timers are below a second
constexpr int floodTime = 4000; ///< ms; for pages that never stop, or do much
constexpr auto secret = "TOP-SECRET";
constexpr auto pageName = "kevratemp.html"; ///< as in the preview, whose address some of the pages expect
const QString ofTheUser = "what the user has copied";

class Stage : public BesideStage {
public:
    explicit Stage(const QString &folder)
    {
        m_folder = folder.toStdString();
        m_commands.setDocument((folder + '/' + pageName).toStdString(), true);
        open("nothing");
        watch(settleTime);
        m_commands.close();
        watch(settleTime / 2);
        m_helpers = engineProcesses();
    }

    void play(const QString &path);

private:
    [[nodiscard]] QString title() const { return view()->property("title").toString(); }
    [[nodiscard]] QSet<int> pageProcesses() const { return engineProcesses() - m_helpers; }
    [[nodiscard]] bool hasEnded() const { return !m_note.isEmpty() && !m_loaded; }
    void open(const std::string &text)
    {
        m_text = text;
        m_commands.open();
    }
    void type()
    {
        m_text += 'x';
        m_commands.textChanged();
    }
    void watch(int time);
    [[nodiscard]] bool crash(const QSet<int> &processes);
    void print(const QString &name, qint64 back, bool ended, const QByteArray &said);

    QSet<int> m_helpers; ///< what is left of the engine without a page
    int m_before = 0; ///< MB
    int m_dialogs = 0;
    int m_followed = 0;
    int m_read = 0;
    int m_windows = 0;
    int m_pageMemory = 0;
    qint64 m_stall = 0;
};

void Stage::watch(int time)
{
    QElapsedTimer clock;
    for (clock.start(); clock.elapsed() < time;) {
        QElapsedTimer step;
        step.start();
        QTest::qWait(30);
        m_stall = std::max(m_stall, step.elapsed() - 30);
        int memory = 0;
        for (const int process : pageProcesses())
            memory += memoryOf(QString::number(process), "RssAnon:")
                + memoryOf(QString::number(process), "RssShmem:");
        m_pageMemory = std::max(m_pageMemory, memory);
        const auto address = view()->property("url").toUrl();
        m_followed = std::max(m_followed, address.isEmpty() || address.fileName() == pageName ? 0 : 1);
        m_read = std::max(m_read, title().contains(secret) ? 1 : 0);
        int shown = 0;
        for (auto *window : QApplication::topLevelWidgets()) {
            if (auto *box = qobject_cast<QDialog *>(window); box && box->isVisible()) {
                ++m_dialogs;
                box->reject();
            } else {
                shown += window->isVisible() && window != &m_panel;
            }
        }
        m_windows = std::max(m_windows, shown);
    }
}

/// Ends the processes of the page from outside. False when the user is not told.
bool Stage::crash(const QSet<int> &processes)
{
    for (const int process : processes)
        ::kill(process, SIGKILL);
    return QTest::qWaitFor([this] { return hasEnded(); }, 3000);
}

void Stage::play(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    m_dialogs = m_followed = m_read = m_windows = m_pageMemory = 0;
    m_stall = 0;
    const auto name = QFileInfo(path).baseName();
    const bool patient = name.startsWith("flood") || name.startsWith("realm") || name == "shown";
    m_before = memoryOf("self", "VmRSS:");
    forgetPeak();
    QGuiApplication::clipboard()->setText(ofTheUser);
    open(file.readAll().toStdString());
    // On a busy machine a page takes its time to start; what it does is counted from there.
    std::ignore = QTest::qWaitFor([this] { return !pageProcesses().isEmpty() && !title().isEmpty(); }, 10000);
    watch(settleTime / 2);
    QTest::mouseClick(page(), Qt::LeftButton, {}, {40, 40});
    type();
    watch(patient ? floodTime : settleTime);
    // The parts of a page that means no harm come as fast as the machine lets them.
    if (name == "shown")
        std::ignore = QTest::qWaitFor([this] { return title().endsWith("frame"); }, 10000);
    const auto processes = pageProcesses();
    const auto said = title().toUtf8().toPercentEncoding();
    // A page that took too much has been ended before.
    bool good = !processes.isEmpty() || hasEnded();
    if (name == "killed")
        good = good && crash(processes);
    QElapsedTimer clock;
    clock.start();
    m_commands.stop();
    m_commands.close();
    QCoreApplication::processEvents();
    const auto back = clock.elapsed();
    const bool ended = QTest::qWaitFor([&] { return !pageProcesses().intersects(processes); }, 2000);
    print(name, back, ended && good, said);
}

void Stage::print(const QString &name, qint64 back, bool ended, const QByteArray &said)
{
    std::printf("%s followed=%d read=%d windows=%d dialogs=%d stall=%lld back=%lld queued=0 ended=%s own=%d "
                "page=%d clip=%s title=%s\n",
        qPrintable(name), m_followed, m_read, m_windows, m_dialogs, static_cast<long long>(m_stall),
        static_cast<long long>(back), ended ? "yes" : "no", memoryOf("self", "VmHWM:") - m_before,
        m_pageMemory, QGuiApplication::clipboard()->text() == ofTheUser ? "kept" : "changed",
        said.constData());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QDir folder(application.arguments().value(1));
    Stage stage(folder.path());
    for (const auto &page : folder.entryList({"*.hostile"}, QDir::Files, QDir::Name))
        stage.play(folder.filePath(page));
    return 0;
}
