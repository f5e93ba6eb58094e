// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the program's own files on a thread of its own, so that typing never waits for a disk, and tries
// again what could not be written.
#pragma once

#include "storage/file_store.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>

namespace kevra {

class BackgroundWriter {
public:
    using Job = std::function<Saved()>; ///< runs on the thread; owns all it needs

    /// `outcomeChanged` runs, on the thread or in drop(), when what outcome() answers has changed.
    explicit BackgroundWriter(std::function<void()> outcomeChanged = [] {});
    ~BackgroundWriter(); ///< everything handed in is tried first
    BackgroundWriter(const BackgroundWriter &) = delete;
    BackgroundWriter &operator=(const BackgroundWriter &) = delete;

    /// Runs soon; of several waiting under one name only the last. A job that fails runs again every second
    /// until it succeeds, is replaced or dropped.
    void run(const std::string &name, Job job);
    /// What waited under the name is forgotten, and nothing under it runs any more when this returns.
    void drop(const std::string &name);
    /// Every job that waits or has failed has been tried when this returns.
    void finish();
    /// Of the last job that ran under the name; Ok when there was none.
    [[nodiscard]] Saved outcome(const std::string &name) const;

private:
    struct NamedJob {
        std::string name;
        Job job;
    };

    void loop();
    void runNext(std::unique_lock<std::mutex> &lock);
    void forget(const std::string &name);
    void retryFailed();

    std::function<void()> m_outcomeChanged;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<NamedJob> m_jobs;
    std::deque<NamedJob> m_failed; ///< wait for their next turn
    std::map<std::string, Saved> m_outcomes;
    std::string m_running; ///< the name of the job that runs
    bool m_replaced = false; ///< another job under that name has come since it began
    bool m_end = false;
    std::thread m_thread; ///< last, so that it finds the others made
};

} // namespace kevra
