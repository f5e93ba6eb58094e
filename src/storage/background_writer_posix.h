// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the program's own files on a separate thread, so that typing never waits for a disk, and retries
// failed writes.
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
    using Job = std::function<WriteOutcome()>; ///< runs on the thread; must own all its data

    /// `outcomeChanged` is called, on the thread or in drop(), when outcome() has changed.
    explicit BackgroundWriter(std::function<void()> outcomeChanged = [] {});
    ~BackgroundWriter(); ///< tries every pending job first
    BackgroundWriter(const BackgroundWriter &) = delete;
    BackgroundWriter &operator=(const BackgroundWriter &) = delete;

    /// Runs the job soon; it replaces a waiting job of the same name. A failed job is retried every second
    /// until it succeeds, is replaced or dropped.
    void run(const std::string &name, Job job);
    /// Removes the job of that name. When this returns, none is running.
    void drop(const std::string &name);
    /// Returns when every waiting or failed job has been tried.
    void finish();
    /// The outcome of the last job of that name; Ok when there was none.
    [[nodiscard]] WriteOutcome outcome(const std::string &name) const;

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
    std::deque<NamedJob> m_failed; ///< waiting for a retry
    std::map<std::string, WriteOutcome> m_outcomes;
    std::string m_running; ///< name of the running job; empty if none
    bool m_replaced = false; ///< the running job was replaced or dropped
    bool m_stopping = false;
    std::thread m_thread; ///< last: starts when the other members exist
};

} // namespace kevra
