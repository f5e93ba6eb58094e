// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the nth of chosen system calls of the main thread fail, kills the program there, or plays another
// program that writes a file just before it. Preloaded.
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

struct Plan {
    char call[32] = ""; ///< "" is off, "any" every call named here
    long at = 0; ///< from 1; 0 only counts, -1 means all of them
    int error = 0; ///< 0 kills; below 0 another program writes
    long seen = 0;
} plan;

constexpr int renamesOver = -1;
constexpr long everyOne = -1;

/// What another program may do between two calls of this one: the file in KEVRA_FOREIGN_FROM takes the place
/// of KEVRA_FOREIGN_TO, or its bytes are written into it.
void writeForeign(int how)
{
    const char *from = std::getenv("KEVRA_FOREIGN_FROM");
    const char *to = std::getenv("KEVRA_FOREIGN_TO");
    if (how == renamesOver) {
        ::syscall(SYS_rename, from, to);
        return;
    }
    char bytes[4096];
    const auto source = static_cast<int>(::syscall(SYS_openat, AT_FDCWD, from, O_RDONLY, 0));
    const auto size = ::syscall(SYS_read, source, bytes, sizeof bytes);
    const auto target
        = static_cast<int>(::syscall(SYS_openat, AT_FDCWD, to, O_WRONLY | O_CREAT | O_TRUNC, 0644));
    ::syscall(SYS_write, target, bytes, size);
    ::close(source);
    ::close(target);
}

bool strikes(const char *call)
{
    if (!plan.call[0] || ::syscall(SYS_gettid) != ::getpid())
        return false;
    if (std::strcmp(plan.call, "any") != 0 && std::strcmp(plan.call, call) != 0)
        return false;
    if (++plan.seen != plan.at && plan.at != everyOne)
        return false;
    if (plan.error < 0)
        return writeForeign(plan.error), false;
    if (plan.error == 0)
        ::kill(::getpid(), SIGKILL);
    errno = plan.error;
    return true;
}

bool isFile(int descriptor)
{
    struct stat status { };
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

template <typename Function> Function next(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

} // namespace

// Names and parameters are the C library's.
#define FAULT(result, name, parameters, arguments, condition)                                                \
    extern "C" result name parameters                                                                        \
    {                                                                                                        \
        static const auto real = next<result(*) parameters>(#name);                                          \
        if ((condition) && strikes(#name))                                                                   \
            return static_cast<result>(-1);                                                                  \
        return real arguments;                                                                               \
    }

FAULT(ssize_t, write, (int fd, const void *data, size_t size), (fd, data, size), isFile(fd))
FAULT(ssize_t, pwrite, (int fd, const void *data, size_t size, off_t at), (fd, data, size, at), true)
FAULT(ssize_t, read, (int fd, void *data, size_t size), (fd, data, size), isFile(fd))
FAULT(int, fsync, (int fd), (fd), true)
FAULT(int, fchmod, (int fd, mode_t mode), (fd, mode), true)
FAULT(int, fchown, (int fd, uid_t user, gid_t group), (fd, user, group), true)
FAULT(int, ftruncate, (int fd, off_t size), (fd, size), true)
FAULT(int, rename, (const char *from, const char *to), (from, to), true)
FAULT(int, renameat, (int d1, const char *from, int d2, const char *to), (d1, from, d2, to), true)
FAULT(int, renameat2, (int d1, const char *from, int d2, const char *to, unsigned flags),
    (d1, from, d2, to, flags), true)
FAULT(int, linkat, (int d1, const char *from, int d2, const char *to, int flags), (d1, from, d2, to, flags),
    true)
FAULT(int, unlink, (const char *path), (path), true)
FAULT(int, unlinkat, (int folder, const char *path, int flags), (folder, path, flags), true)

extern "C" int openat(int folder, const char *path, int flags, ...)
{
    static const auto real = next<int (*)(int, const char *, int, ...)>("openat");
    va_list list;
    va_start(list, flags);
    const auto mode = static_cast<mode_t>(va_arg(list, int));
    va_end(list);
    return strikes("openat") ? -1 : real(folder, path, flags, mode);
}

/// Sets a plan and answers how many calls the last one has seen.
extern "C" long kevra_fault_control(const char *call, long at, int error)
{
    const long seen = plan.seen;
    plan = {};
    std::strncpy(plan.call, call, sizeof plan.call - 1);
    plan.at = at;
    plan.error = error;
    return seen;
}

/// Before anybody can give an order.
__attribute__((constructor)) static void killAtStart()
{
    if (const char *at = std::getenv("KEVRA_KILL_AT"))
        kevra_fault_control("any", std::atol(at), 0);
}
