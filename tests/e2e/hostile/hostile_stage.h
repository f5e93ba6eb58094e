// SPDX-License-Identifier: GPL-3.0-or-later
// Shows every page of a folder in a view over the real web engine, clicks on it, goes back to the text, and
// prints what the page has achieved, one line a page:
//   NAME followed=N read=N windows=N dialogs=N stall=MS back=MS queued=MS ended=yes|no own=MB page=MB
//   clip=kept|changed title=TEXT
// stall: how long an event had to wait; back: from the click on the way back to the text, queued: how much of
// that the program was ready and had no processor; own, page: what the editor and the page's processes grew
// by at most.
#pragma once

#include "e2e/hostile/engine_processes.h"

#include <QtTest/QTest>
#include <QtWidgets/QtWidgets>

#include <csignal>
#include <cstdio>

namespace kevra {

class HostileStage {
public:
    virtual ~HostileStage() = default;

    /// Once, before the first page.
    void startEngine()
    {
        QObject::connect(&m_closer, &QTimer::timeout, &m_closer, [this] { closeDialogs(); });
        m_closer.start(20);
        show("nothing");
        watch(settleTime);
        std::ignore = leave();
        watch(settleTime / 2);
        m_helpers = engineProcesses();
    }

    void playAll(const QDir &folder)
    {
        for (const auto &page : folder.entryList({"*.hostile"}, QDir::Files, QDir::Name))
            play(folder.filePath(page));
    }

protected:
    struct Way {
        qint64 time = 0; ///< ms
        qint64 queued = 0;
    };

    [[nodiscard]] virtual QWidget *view() = 0; ///< the engine's
    [[nodiscard]] virtual bool isEditors(const QWidget *window) = 0;
    virtual void show(const std::string &text) = 0;
    virtual void use(const QString &name) = 0; ///< as a user would who is taken in by it
    [[nodiscard]] virtual bool hasEnded() = 0; ///< by itself, and the user was told once
    [[nodiscard]] virtual Way leave() = 0;

    /// What takes the mouse.
    [[nodiscard]] QWidget *page() { return view()->focusProxy() ? view()->focusProxy() : view(); }

    static constexpr auto pageName = "kevratemp.html";

private:
    static constexpr int settleTime = 1100; ///< ms; the pages' timers are below a second
    static constexpr int patientTime = 4000; ///< ms; for pages that do much
    static constexpr int floodTime = 2000; ///< ms; for pages that never stop
    static constexpr auto secret = "TOP-SECRET";

    struct Achieved {
        int followed = 0;
        int read = 0;
        int windows = 0;
        int dialogs = 0;
        int memory = 0; ///< MB
        qint64 stall = 0;
    };

    [[nodiscard]] QString title() { return view() ? view()->property("title").toString() : QString(); }
    [[nodiscard]] QSet<int> pageProcesses() const { return engineProcesses() - m_helpers; }

    void closeDialogs()
    {
        for (auto *window : QApplication::topLevelWidgets()) {
            if (auto *box = qobject_cast<QDialog *>(window); box && box->isVisible()) {
                ++m_achieved.dialogs;
                box->reject();
            }
        }
    }

    void watch(int time)
    {
        QElapsedTimer clock;
        for (clock.start(); clock.elapsed() < time;) {
            QElapsedTimer step;
            step.start();
            QTest::qWait(30);
            m_achieved.stall = std::max(m_achieved.stall, step.elapsed() - 30);
            look();
        }
    }

    void look()
    {
        int memory = 0;
        for (const int process : pageProcesses())
            memory += memoryOf(QString::number(process), "RssAnon:")
                + memoryOf(QString::number(process), "RssShmem:");
        m_achieved.memory = std::max(m_achieved.memory, memory);
        const auto address = view()->property("url").toUrl();
        m_achieved.followed |= !address.isEmpty() && address.fileName() != pageName;
        m_achieved.read |= title().contains(secret);
        int shown = 0;
        for (const auto *window : QApplication::topLevelWidgets())
            shown += window->isVisible() && !isEditors(window) && !qobject_cast<const QDialog *>(window);
        m_achieved.windows = std::max(m_achieved.windows, shown);
    }

    void play(const QString &path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return;
        const auto name = QFileInfo(path).baseName();
        const QString ofTheUser = "what the user has copied";
        m_achieved = {};
        const int before = memoryOf("self", "VmRSS:");
        forgetPeak();
        QGuiApplication::clipboard()->setText(ofTheUser);
        show(file.readAll().toStdString());
        // On a busy machine a page takes its time to start; what it does is counted from there.
        std::ignore
            = QTest::qWaitFor([this] { return !pageProcesses().isEmpty() && !title().isEmpty(); }, 10000);
        watch(settleTime / 2);
        use(name);
        const bool doesMuch = name.startsWith("realm") || name == "shown";
        watch(name.startsWith("flood") ? floodTime : doesMuch ? patientTime : settleTime);
        // The parts of a page that means no harm come as fast as the machine lets them.
        if (name == "shown")
            std::ignore = QTest::qWaitFor([this] { return title().endsWith("frame"); }, 10000);
        const auto processes = pageProcesses();
        const auto said = title().toUtf8().toPercentEncoding();
        // A page that took too much goes by itself.
        if (name == "killed") {
            for (const int process : processes)
                ::kill(process, SIGKILL);
        }
        const bool hasGone = processes.isEmpty() || name == "killed";
        bool good = !hasGone || QTest::qWaitFor([this] { return hasEnded(); }, name == "killed" ? 3000 : 0);
        const auto back = leave();
        good = QTest::qWaitFor([&] { return !pageProcesses().intersects(processes); }, 2000) && good;
        const bool kept = QGuiApplication::clipboard()->text() == ofTheUser;
        std::printf("%s followed=%d read=%d windows=%d dialogs=%d stall=%lld back=%lld queued=%lld ended=%s "
                    "own=%d page=%d clip=%s title=%s\n",
            qPrintable(name), m_achieved.followed, m_achieved.read, m_achieved.windows, m_achieved.dialogs,
            static_cast<long long>(m_achieved.stall), static_cast<long long>(back.time),
            static_cast<long long>(back.queued), good ? "yes" : "no", memoryOf("self", "VmHWM:") - before,
            m_achieved.memory, kept ? "kept" : "changed", said.constData());
        std::fflush(stdout);
    }

    QTimer m_closer;
    QSet<int> m_helpers; ///< what is left of the engine without a page
    Achieved m_achieved;
};

} // namespace kevra
