// SPDX-License-Identifier: GPL-3.0-or-later
#include "findings/analysis_thread.h"

#include <new>
#include <utility>

namespace kevra {

AnalysisThread::AnalysisThread(Done done)
    : m_done(std::move(done))
{
}

void AnalysisThread::start(Request request)
{
    {
        const std::lock_guard lock(m_mutex);
        m_next = std::move(request);
    }
    m_changed.notify_one();
    if (!m_thread.joinable())
        m_thread = std::jthread([this](const std::stop_token &stop) { run(stop); });
}

void AnalysisThread::run(const std::stop_token &stop)
{
    while (true) {
        std::unique_lock lock(m_mutex);
        if (!m_changed.wait(lock, stop, [this] { return m_next.has_value(); }))
            return;
        auto request = *std::exchange(m_next, std::nullopt);
        lock.unlock();
        try {
            auto findings = m_analysis.run(request.text, request.place);
            m_done(std::move(request), std::move(findings));
        } catch (const std::bad_alloc &) {
            // No findings this time; the next pause tries again.
            continue;
        }
    }
}

} // namespace kevra
