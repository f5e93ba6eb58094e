// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace kevra {

/// Watches one file by its name, so that it is followed through writers that put a new file in its place. The
/// system tells of changes in the folder; a look once a second finds those it does not tell of, as on network
/// folders. All of it runs on a thread: a network folder that does not answer holds up nobody.
class FileWatch {
public:
    /// `changed` runs on the thread, once when the watch begins and then after each change, when the file has
    /// been left alone for a moment.
    explicit FileWatch(std::function<void()> changed);
    ~FileWatch();
    FileWatch(const FileWatch &) = delete;
    FileWatch &operator=(const FileWatch &) = delete;

    void watch(const std::string &path); ///< empty watches nothing

private:
    struct Shared;
    static void run(const std::shared_ptr<Shared> &shared);

    std::shared_ptr<Shared> m_shared; ///< with the thread, which may be waiting for a network when this ends
};

} // namespace kevra
