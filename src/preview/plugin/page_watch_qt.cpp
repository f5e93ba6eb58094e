// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/plugin/page_watch_qt.h"

#include "preview/page_bounds.h"

#include <chrono>
#include <csignal>
#include <fstream>
#include <string>
#include <utility>

namespace kevra {

namespace {

constexpr std::chrono::milliseconds pause{50};
constexpr int looksPerSum = 4; ///< the page's processes are counted less often than the editor grows

std::string processFolder(pid_t process)
{
    return "/proc/" + std::to_string(process);
}

/// The numbers of kilobytes in a process's status; 0 when it is gone.
std::int64_t memoryOf(const std::string &folder, std::initializer_list<std::string_view> names)
{
    std::ifstream status(folder + "/status");
    std::int64_t sum = 0;
    for (std::string line; std::getline(status, line);) {
        for (const auto name : names) {
            if (line.starts_with(name))
                sum += std::stoll(line.substr(name.size())) << 10;
        }
    }
    return sum;
}

pid_t parentOf(pid_t process)
{
    std::ifstream status(processFolder(process) + "/status");
    constexpr std::string_view name = "PPid:";
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name))
            return static_cast<pid_t>(std::stol(line.substr(name.size())));
    }
    return 0;
}

/// Frames and workers can have processes beside the page's: one process starts them all.
std::int64_t pageMemory(pid_t page)
{
    const auto starter = processFolder(parentOf(page));
    std::ifstream children(starter + "/task/" + starter.substr(starter.rfind('/') + 1) + "/children");
    std::int64_t sum = 0;
    for (pid_t process = 0; children >> process;)
        sum += memoryOf(processFolder(process), {"RssAnon:", "RssShmem:"});
    return sum;
}

} // namespace

std::int64_t editorMemory()
{
    return memoryOf("/proc/self", {"RssAnon:", "RssShmem:"});
}

PageWatch::PageWatch(std::function<void(pid_t)> killed)
    : m_killed(std::move(killed))
    , m_thread([this](const std::stop_token &stop) { run(stop); })
{
}

void PageWatch::begin()
{
    const std::lock_guard lock(m_guard);
    m_process = 0;
    m_before = editorMemory();
}

void PageWatch::setProcess(pid_t process)
{
    const std::lock_guard lock(m_guard);
    m_process = process;
    m_changed.notify_one();
}

void PageWatch::run(const std::stop_token &stop)
{
    PageMemory used;
    for (int look = 0; !stop.stop_requested(); ++look) {
        std::unique_lock lock(m_guard);
        m_changed.wait(lock, stop, [this] { return m_process > 0; });
        used.editorGrowth = editorMemory() - m_before;
        if (look % looksPerSum == 0)
            used.pageProcesses = pageMemory(m_process);
        if (m_process > 0 && isTooMuch(used)) {
            ::kill(m_process, SIGKILL);
            m_killed(std::exchange(m_process, 0));
        }
        m_changed.wait_for(lock, stop, pause, [] { return false; });
    }
}

} // namespace kevra
