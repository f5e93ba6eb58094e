// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/page_text_thread.h"

#include <new>
#include <utility>

namespace kevra {

PageTextThread::PageTextThread(Done done)
    : m_done(std::move(done))
{
}

void PageTextThread::start(std::string text, PageTextRequest request)
{
    {
        const std::lock_guard lock(m_mutex);
        m_next = {std::move(text), std::move(request)};
    }
    m_changed.notify_one();
    if (!m_thread.joinable())
        m_thread = std::jthread([this](const std::stop_token &stop) { run(stop); });
}

void PageTextThread::run(const std::stop_token &stop)
{
    for (std::unique_lock lock(m_mutex); m_changed.wait(lock, stop, [this] { return m_next.has_value(); });
         lock.lock()) {
        auto work = *std::exchange(m_next, std::nullopt);
        lock.unlock();
        std::shared_ptr<PageText> page;
        try {
            page = std::make_shared<PageText>(makePageText(std::move(work.text), work.request));
        } catch (const std::bad_alloc &) {
            page = nullptr; // the page stays as it is
        }
        m_done(page);
    }
}

} // namespace kevra
