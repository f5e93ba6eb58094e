// SPDX-License-Identifier: GPL-3.0-or-later
// Writes and removes the program's own files on a thread of its own, so that typing never waits for a disk.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace kevra {

class BackgroundWriterQt {
public:
    using Producer = std::function<std::string()>; ///< runs on the thread; owns all it needs

    BackgroundWriterQt();
    ~BackgroundWriterQt(); ///< everything handed in is written first
    BackgroundWriterQt(const BackgroundWriterQt &) = delete;
    BackgroundWriterQt &operator=(const BackgroundWriterQt &) = delete;

    /// The file holds the producer's bytes soon; of several waiting for one path only the last is written.
    void write(const std::string &path, Producer bytes);
    /// The file is gone when this returns, and what waited for it is dropped.
    void remove(const std::string &path);
    void finish();

private:
    struct Job {
        std::string path;
        Producer bytes;
    };

    void run();
    void forget(const std::string &path);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Job> m_jobs;
    std::string m_running; ///< the path that is being written
    bool m_end = false;
    std::thread m_thread; ///< last, so that it finds the others made
};

} // namespace kevra
