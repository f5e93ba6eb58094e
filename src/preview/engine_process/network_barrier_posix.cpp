// SPDX-License-Identifier: GPL-3.0-or-later
#include "network_barrier_posix.h"

#include <seccomp.h>
#include <sys/socket.h>

#include <cerrno>

namespace kevra {

bool refuseSockets(Sockets refused)
{
    auto *filter = seccomp_init(SCMP_ACT_ALLOW);
    if (!filter)
        return false;
    const auto denied = SCMP_ACT_ERRNO(EACCES);
    const auto notLocal = SCMP_A0(SCMP_CMP_NE, AF_UNIX);
    const int sockets = refused == Sockets::All
        ? seccomp_rule_add(filter, denied, SCMP_SYS(socket), 0)
        : seccomp_rule_add(filter, denied, SCMP_SYS(socket), 1, notLocal);
    // io_uring makes sockets past the filter.
    const int rings = seccomp_rule_add(filter, SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(io_uring_setup), 0);
    const bool loaded = sockets == 0 && rings == 0 && seccomp_load(filter) == 0;
    seccomp_release(filter);
    return loaded;
}

} // namespace kevra
