// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/process_start_qt.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kevra {
namespace {

class ProcessStartTest : public testing::Test {
protected:
    std::string program(const QString &name, const QByteArray &content, bool executable = true) const
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        if (executable)
            file.setPermissions(file.permissions() | QFile::ExeOwner);
        return file.fileName().toStdString();
    }

    /// Waits for the report, which the started program renames into place when it is complete.
    QList<QByteArray> report() const
    {
        QFile file(folder.filePath("report"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return file.exists(); }, 10000));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().trimmed().split('\n');
    }

    QTemporaryDir folder;
    ProcessStartQt start;
};

TEST_F(ProcessStartTest, TheProgramIsDetachedAndInheritsNoHandles)
{
    // A handle without close-on-exec, as some libraries leave them.
    const int leaked = dup(STDERR_FILENO);
    auto *const previousHandler = ::signal(SIGXFSZ, SIG_IGN);
    ASSERT_LT(fcntl(leaked, F_SETFD, 0), 1);
    const auto here = folder.path().toUtf8();
    ASSERT_TRUE(start.start(program("tool with blanks & signs",
        "#!/bin/sh\ncd '" + here
            + "' && { echo $#; ps -o sid= -p $$; echo $$; ps -o ignored= -p $$; readlink /proc/$$/fd/*; } > "
              "part\n"
              "mv part report\nexec sleep 60\n")));
    const auto lines = report();
    close(leaked);
    ::signal(SIGXFSZ, previousHandler);

    ASSERT_GE(lines.size(), 7);
    EXPECT_EQ(lines[0], "0") << "arguments";
    EXPECT_NE(lines[1].trimmed().toInt(), getsid(0)) << "it would end with our session";
    EXPECT_EQ(lines[3].trimmed().toULongLong(nullptr, 16), 0U) << "ignored signals";
    for (const auto &handle : lines.mid(4))
        EXPECT_TRUE(handle == "/dev/null" || handle.startsWith(here)) << handle.toStdString();

    const auto pid = lines[2].toInt();
    EXPECT_EQ(kill(pid, 0), 0) << "still running";
    EXPECT_EQ(waitpid(pid, nullptr, WNOHANG), -1) << "a child of ours";
    kill(pid, SIGKILL);
}

TEST_F(ProcessStartTest, AFailureToStartIsNoticed)
{
    struct {
        const char *name;
        std::string path;
    } const cases[] = {
        {"missing", folder.filePath("moved").toStdString()},
        {"a folder", folder.path().toStdString()},
        {"may not be run", program("plain", "#!/bin/sh\n", false)},
        {"its interpreter is missing", program("orphan", "#!/no/such/interpreter\n")},
        {"not a program, and no shell runs it",
            program("text", "touch '" + folder.path().toUtf8() + "/ran'\n")},
        {"a bare name is not searched for in PATH", "true"},
        {"empty", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_FALSE(start.start(c.path));
    }
    EXPECT_TRUE(start.runsWithoutExtension(cases[3].path));
    for (const auto *item : {cases + 1, cases + 2})
        EXPECT_FALSE(start.runsWithoutExtension(item->path)) << item->name;
    EXPECT_FALSE(QFile::exists(folder.filePath("ran")));
}

} // namespace
} // namespace kevra
