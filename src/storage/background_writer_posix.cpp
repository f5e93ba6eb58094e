// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/background_writer_posix.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <iterator>
#include <new>
#include <utility>

namespace kevra {

namespace {

constexpr std::chrono::seconds retryInterval{1};

WriteOutcome runJob(const BackgroundWriter::Job &job)
{
    try {
        return job();
    } catch (const std::bad_alloc &) {
        return WriteOutcome::Failed;
    }
}

} // namespace

BackgroundWriter::BackgroundWriter(std::function<void()> outcomeChanged)
    : m_outcomeChanged(std::move(outcomeChanged))
{
    // Signals are handled by the main thread.
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_BLOCK, &all, &before);
    m_thread = std::thread([this] { loop(); });
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

BackgroundWriter::~BackgroundWriter()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void BackgroundWriter::run(const std::string &name, Job job)
{
    {
        const std::lock_guard lock(m_mutex);
        forget(name);
        m_jobs.push_back({name, std::move(job)});
    }
    m_changed.notify_all();
}

void BackgroundWriter::drop(const std::string &name)
{
    std::unique_lock lock(m_mutex);
    forget(name);
    m_changed.wait(lock, [&] { return m_running != name; });
    const auto last = m_outcomes.extract(name);
    lock.unlock();
    if (last && last.mapped() != WriteOutcome::Ok)
        m_outcomeChanged();
}

void BackgroundWriter::finish()
{
    std::unique_lock lock(m_mutex);
    retryFailed();
    m_changed.notify_all();
    m_changed.wait(lock, [&] { return m_jobs.empty() && m_running.empty(); });
}

WriteOutcome BackgroundWriter::outcome(const std::string &name) const
{
    const std::lock_guard lock(m_mutex);
    const auto it = m_outcomes.find(name);
    return it == m_outcomes.end() ? WriteOutcome::Ok : it->second;
}

void BackgroundWriter::loop()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        const auto hasWork = [&] { return m_stopping || !m_jobs.empty(); };
        if (m_failed.empty())
            m_changed.wait(lock, hasWork);
        else if (!m_changed.wait_for(lock, retryInterval, hasWork))
            retryFailed();
        if (!m_jobs.empty())
            runNext(lock);
        else if (m_stopping)
            return;
    }
}

void BackgroundWriter::runNext(std::unique_lock<std::mutex> &lock)
{
    auto next = std::move(m_jobs.front());
    m_jobs.pop_front();
    m_running = next.name;
    m_replaced = false;
    lock.unlock();
    const auto saved = runJob(next.job);
    lock.lock();
    m_running.clear();
    const auto before = std::exchange(m_outcomes[next.name], saved);
    if (saved != WriteOutcome::Ok && !m_replaced)
        m_failed.push_back(std::move(next));
    m_changed.notify_all();
    if (before == saved)
        return;
    lock.unlock();
    m_outcomeChanged();
    lock.lock();
}

void BackgroundWriter::forget(const std::string &name)
{
    const auto named = [&](const NamedJob &job) { return job.name == name; };
    std::erase_if(m_jobs, named);
    std::erase_if(m_failed, named);
    m_replaced = m_replaced || m_running == name;
}

void BackgroundWriter::retryFailed()
{
    std::ranges::move(m_failed, std::back_inserter(m_jobs));
    m_failed.clear();
}

} // namespace kevra
