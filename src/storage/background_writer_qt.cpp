// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/background_writer_qt.h"

#include "storage/atomic_write_qt.h"

#include <csignal>
#include <tuple>
#include <unistd.h>

namespace kevra {

BackgroundWriterQt::BackgroundWriterQt()
{
    // Signals are the main thread's to answer.
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_BLOCK, &all, &before);
    m_thread = std::thread([this] { run(); });
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

BackgroundWriterQt::~BackgroundWriterQt()
{
    {
        const std::lock_guard lock(m_mutex);
        m_end = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void BackgroundWriterQt::write(const std::string &path, Producer bytes)
{
    {
        const std::lock_guard lock(m_mutex);
        forget(path);
        m_jobs.push_back({path, std::move(bytes)});
    }
    m_changed.notify_all();
}

void BackgroundWriterQt::remove(const std::string &path)
{
    std::unique_lock lock(m_mutex);
    forget(path);
    m_changed.wait(lock, [&] { return m_running != path; });
    ::unlink(path.c_str());
}

void BackgroundWriterQt::finish()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return m_jobs.empty() && m_running.empty(); });
}

void BackgroundWriterQt::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [&] { return m_end || !m_jobs.empty(); });
        if (m_jobs.empty())
            return;
        auto job = std::move(m_jobs.front());
        m_jobs.pop_front();
        m_running = job.path;
        lock.unlock();
        // A record that cannot be written leaves the one before; the next change tries again.
        std::ignore = writeAtomically(job.path, job.bytes());
        job = {};
        lock.lock();
        m_running.clear();
        m_changed.notify_all();
    }
}

void BackgroundWriterQt::forget(const std::string &path)
{
    std::erase_if(m_jobs, [&](const Job &job) { return job.path == path; });
}

} // namespace kevra
