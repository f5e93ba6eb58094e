// SPDX-License-Identifier: GPL-3.0-or-later
// Looks after the memory that the page shown takes, in its own processes and in the editor's.
#pragma once

#include <sys/types.h>

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <thread>

namespace kevra {

/// What the editor's own process holds, in bytes.
[[nodiscard]] std::int64_t editorMemory();

/// On a thread of its own: what a page does can keep the editor's busy.
class PageWatch {
public:
    /// `killed` is called on the thread of its own when it has killed that process.
    explicit PageWatch(std::function<void(pid_t)> killed);

    /// From now on what the editor grows by counts as the next page's.
    void begin();
    /// The process of the page; 0 when there is none. It is killed when it takes too much.
    void setProcess(pid_t process);

private:
    void run(const std::stop_token &stop);

    std::function<void(pid_t)> m_killed;
    std::mutex m_guard;
    std::condition_variable_any m_changed;
    pid_t m_process = 0;
    std::int64_t m_before = 0; ///< bytes
    std::jthread m_thread; ///< ends first
};

} // namespace kevra
