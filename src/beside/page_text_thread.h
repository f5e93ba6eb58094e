// SPDX-License-Identifier: GPL-3.0-or-later
// Makes copies of the text ready for the page beside it on a thread of its own, one at a time.
#pragma once

#include "beside/page_text.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace kevra {

class PageTextThread {
public:
    using Done = std::function<void(std::shared_ptr<const PageText>)>; ///< called on the thread

    explicit PageTextThread(Done done);

    /// Takes the place of a text that has not begun. The thread is made at the first one.
    void start(std::string text, PageTextRequest request);

private:
    struct Work {
        std::string text;
        PageTextRequest request;
    };
    void run(const std::stop_token &stop);

    Done m_done;
    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::optional<Work> m_next;
    std::jthread m_thread; ///< ends first
};

} // namespace kevra
