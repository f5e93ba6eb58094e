// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace kevra {

/// Watches one file by name, also when a writer replaces it by a new file. Uses inotify, and checks once a
/// second because network folders report no events. Runs on its own thread, so that an unresponsive network
/// folder does not block the program.
class FileWatch {
public:
    /// `changed` is called on the thread: once when a watch begins, then after each change once the file has
    /// settled.
    explicit FileWatch(std::function<void()> changed);
    ~FileWatch();
    FileWatch(const FileWatch &) = delete;
    FileWatch &operator=(const FileWatch &) = delete;

    void watch(const std::string &path); ///< empty stops watching

private:
    struct Shared;
    static void run(const std::shared_ptr<Shared> &shared);

    std::shared_ptr<Shared> m_shared; ///< shared with the thread, which may outlive this object
};

} // namespace kevra
