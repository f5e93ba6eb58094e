// SPDX-License-Identifier: GPL-3.0-or-later
// What the engine of this program has on the machine.
#pragma once

#include <QtCore/QtCore>

namespace kevra {

/// In MB, from a line of a process's status; 0 when it is gone.
inline int memoryOf(const QString &process, const QByteArray &line)
{
    QFile status("/proc/" + process + "/status");
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const auto &each : status.readAll().split('\n')) {
        if (each.startsWith(line))
            return each.mid(line.size()).simplified().split(' ').first().toInt() / 1024;
    }
    return 0;
}

/// In milliseconds: how long this thread has waited for a processor that others had.
inline qint64 queued()
{
    QFile statistics("/proc/self/schedstat");
    if (!statistics.open(QIODevice::ReadOnly))
        return 0;
    return statistics.readAll().split(' ').value(1).toLongLong() / 1'000'000;
}

inline void forgetPeak()
{
    QFile peaks("/proc/self/clear_refs");
    if (peaks.open(QIODevice::WriteOnly))
        peaks.write("5");
}

/// The engine's processes of this program: those that pages run in, and those that start them. How many of
/// these there are depends on the sandbox.
inline QSet<int> engineProcesses()
{
    QHash<int, int> parents;
    QSet<int> found;
    for (const auto &name : QDir("/proc").entryList({"[0-9]*"}, QDir::Dirs)) {
        QFile stat("/proc/" + name + "/stat");
        QFile line("/proc/" + name + "/cmdline");
        if (!stat.open(QIODevice::ReadOnly) || !line.open(QIODevice::ReadOnly))
            continue;
        const auto bytes = stat.readAll();
        const auto fields = bytes.mid(bytes.lastIndexOf(')') + 2).split(' ');
        parents[name.toInt()] = fields.value(1).toInt();
        const auto command = line.readAll();
        // Sound and the like have a process that serves every page; no script runs there.
        const bool runsPages = command.contains("QtWebEngineProcess") && !command.contains("--type=utility");
        if (runsPages && fields.value(0) != "Z")
            found.insert(name.toInt());
    }
    const auto self = static_cast<int>(QCoreApplication::applicationPid());
    found.removeIf([&](int process) {
        while (process > 0 && process != self)
            process = parents.value(process);
        return process != self;
    });
    return found;
}

} // namespace kevra
