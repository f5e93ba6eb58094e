// SPDX-License-Identifier: GPL-3.0-or-later
// Stands between the editor and every process of the web engine: takes away what no page may have, then
// becomes the engine's own program. What is refused here no script can get back, in whatever realm it runs.
// Without arguments it tells whether this system can do so.
#include <seccomp.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string_view>
#include <tuple>

namespace {

constexpr rlim_t pageMemory = rlim_t{2} << 30; ///< bytes of its own that a process with pages can have
constexpr int pageNiceness = 5; ///< beside the editor, which has to answer while a page computes without end

/// The names of the engine's command line.
constexpr std::string_view networkProcess = "--utility-sub-type=network.mojom.NetworkService";
constexpr std::string_view pageProcesses[] = {"--type=zygote", "--type=renderer"};

bool contains(std::span<char *> arguments, std::string_view wanted)
{
    for (const char *argument : arguments) {
        if (argument == wanted)
            return true;
    }
    return false;
}

/// From here on, and in every program started from here: sockets of this machine alone for the display and
/// the sound, and none at all for the process that looks names up and connects. io_uring makes sockets past
/// the filter. Sockets that are handed over are not looked at: the editor has none for the Internet.
bool refuseSockets(bool allOfThem)
{
    auto *filter = seccomp_init(SCMP_ACT_ALLOW);
    if (!filter)
        return false;
    const auto refused = SCMP_ACT_ERRNO(EACCES);
    const auto localOnly = SCMP_A0(SCMP_CMP_NE, AF_UNIX);
    const int sockets = allOfThem ? seccomp_rule_add(filter, refused, SCMP_SYS(socket), 0)
                                  : seccomp_rule_add(filter, refused, SCMP_SYS(socket), 1, localOnly);
    const int rings = seccomp_rule_add(filter, SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(io_uring_setup), 0);
    const bool loaded = sockets == 0 && rings == 0 && seccomp_load(filter) == 0;
    seccomp_release(filter);
    return loaded;
}

bool limitMachine()
{
    const rlimit bound{pageMemory, pageMemory};
    std::ignore = setpriority(PRIO_PROCESS, 0, getpriority(PRIO_PROCESS, 0) + pageNiceness);
    return setrlimit(RLIMIT_DATA, &bound) == 0;
}

} // namespace

int main(int argc, char **argv)
{
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (!refuseSockets(contains(arguments, networkProcess)))
        return EXIT_FAILURE;
    for (const auto kind : pageProcesses) {
        if (contains(arguments, kind) && !limitMachine())
            return EXIT_FAILURE;
    }
    if (argc == 1)
        return EXIT_SUCCESS;
    argv[0] = const_cast<char *>(KEVRA_ENGINE_PROCESS);
    execv(KEVRA_ENGINE_PROCESS, argv);
    std::perror(KEVRA_ENGINE_PROCESS);
    return EXIT_FAILURE;
}
