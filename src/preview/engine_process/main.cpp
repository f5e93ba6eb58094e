// SPDX-License-Identifier: GPL-3.0-or-later
// Stands between the editor and every process of the web engine: takes away what no page may have, then
// becomes the engine's own program. What is refused here no script can get back, in whatever realm it runs.
// Without arguments it tells whether this system can do so.
#include "network_barrier_posix.h"

#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <span>
#include <string_view>
#include <tuple>

using kevra::Sockets;

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

bool limitResources()
{
    const rlimit bound{pageMemory, pageMemory};
    std::ignore = setpriority(PRIO_PROCESS, 0, getpriority(PRIO_PROCESS, 0) + pageNiceness);
    return setrlimit(RLIMIT_DATA, &bound) == 0;
}

} // namespace

int main(int argc, char **argv)
{
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    const auto refused = contains(arguments, networkProcess) ? Sockets::All : Sockets::AllButLocal;
    if (!kevra::refuseSockets(refused))
        return EXIT_FAILURE;
    for (const auto kind : pageProcesses) {
        if (contains(arguments, kind) && !limitResources())
            return EXIT_FAILURE;
    }
    if (argc == 1)
        return EXIT_SUCCESS;
    argv[0] = const_cast<char *>(KEVRA_ENGINE_PROCESS);
    execv(KEVRA_ENGINE_PROCESS, argv);
    std::perror(KEVRA_ENGINE_PROCESS);
    return EXIT_FAILURE;
}
