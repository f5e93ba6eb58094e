// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/end_signals_qt.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace kevra {
namespace {

// Signal handlers can only reach static data.
std::array<int, 2> endPipe{-1, -1};
std::function<void()> *crashHandler = nullptr;

/// The signals that terminate a program by default.
constexpr std::array endSignals{SIGTERM, SIGHUP, SIGINT, SIGQUIT, SIGUSR1, SIGUSR2, SIGALRM, SIGVTALRM,
    SIGPROF, SIGXCPU, SIGPWR, SIGIO, SIGSTKFLT};
constexpr std::array crashSignals{SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT, SIGSYS, SIGTRAP};
constexpr unsigned crashSeconds = 3;

void forwardSignal(int)
{
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(endPipe[1], &byte, 1);
}

void crash(int signal)
{
    // A second crash ends the process; the alarm ends it if the handler waits for a lock that was held.
    for (const int other : crashSignals)
        ::signal(other, SIG_DFL);
    ::signal(SIGALRM, SIG_DFL);
    ::alarm(crashSeconds);
    if (auto *handler = std::exchange(crashHandler, nullptr))
        (*handler)();
    ::raise(signal);
}

void handle(int signal, void (*handler)(int), int flags)
{
    struct sigaction action { };
    action.sa_handler = handler;
    action.sa_flags = flags;
    ::sigemptyset(&action.sa_mask);
    ::sigaction(signal, &action, nullptr);
}

} // namespace

EndSignalsQt::EndSignalsQt(std::function<void()> quitRequested, std::function<void()> crashed)
{
    // Exceeding a file-size limit should fail the write, not kill the program.
    ::signal(SIGXFSZ, SIG_IGN);
    if (::pipe2(endPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(endPipe[0], QSocketNotifier::Read);
    QObject::connect(
        m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [ask = std::move(quitRequested)] {
            char byte = 0;
            [[maybe_unused]] const auto taken = ::read(endPipe[0], &byte, 1);
            ask();
        });
    crashHandler = new std::function<void()>(std::move(crashed));
    for (const int signal : endSignals)
        handle(signal, forwardSignal, SA_RESTART);
    for (const int signal : crashSignals)
        handle(signal, crash, SA_NODEFER);
}

EndSignalsQt::~EndSignalsQt()
{
    for (const int signal : endSignals)
        ::signal(signal, SIG_DFL);
    for (const int signal : crashSignals)
        ::signal(signal, SIG_DFL);
    delete std::exchange(crashHandler, nullptr);
    m_notifier.reset();
    for (int &end : endPipe)
        ::close(std::exchange(end, -1));
}

} // namespace kevra
