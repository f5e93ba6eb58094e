// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/process_start_qt.h"

#include "desktop/text_qt.h"

#include <QtCore/QFileInfo>
#include <QtCore/QProcess>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#endif

namespace kevra {
namespace {

#ifdef Q_OS_UNIX
// Marked close-on-exec, not closed: the pipe that reports a failed start must stay open until then.
void closeHandlesAtExec()
{
    constexpr int firstOwn = STDERR_FILENO + 1;
#ifdef CLOSE_RANGE_CLOEXEC
    if (close_range(firstOwn, ~0U, CLOSE_RANGE_CLOEXEC) == 0)
        return;
#endif
    for (int handle = firstOwn, end = static_cast<int>(sysconf(_SC_OPEN_MAX)); handle < end; ++handle)
        fcntl(handle, F_SETFD, FD_CLOEXEC);
}

// Ignored signals stay ignored across exec, so they are reset for the new program.
void restoreSignalDefaults()
{
    for (int number = 1; number < NSIG; ++number)
        std::signal(number, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

// Runs in the child between fork and exec. Forks again and exits, so that the program is not our child: it
// survives this process and needs no wait().
void detach()
{
    setsid();
    if (const auto program = fork(); program != 0)
        _exit(program > 0 ? EXIT_SUCCESS : EXIT_FAILURE);
    restoreSignalDefaults();
    closeHandlesAtExec();
}
#endif

} // namespace

bool ProcessStartQt::start(const std::string &path)
{
    return start(path, {});
}

bool ProcessStartQt::start(const std::string &path, const std::string &argument)
{
    QProcess process;
    if (!argument.empty())
        process.setArguments({pathText(argument)});
    // Absolute, because a bare name would be searched for in PATH.
    process.setProgram(QFileInfo(pathText(path)).absoluteFilePath());
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
#ifdef Q_OS_UNIX
    // Not startDetached(): it leaks handles that a library did not mark close-on-exec.
    process.setChildProcessModifier(detach);
    process.start();
    return process.waitForStarted() && process.waitForFinished() && process.exitCode() == EXIT_SUCCESS;
#else
    return process.startDetached();
#endif
}

bool ProcessStartQt::runsWithoutExtension(const std::string &path) const
{
#ifdef Q_OS_WIN
    static_cast<void>(path);
    return false;
#else
    const QFileInfo file(pathText(path));
    return file.isFile() && file.isExecutable();
#endif
}

std::string ProcessStartQt::namePattern() const
{
#ifdef Q_OS_WIN
    return "*.exe";
#else
    return "*";
#endif
}

} // namespace kevra
