// SPDX-License-Identifier: GPL-3.0-or-later
// Analyses copies of the text on a separate thread, one at a time.
#pragma once

#include "page/document_findings.h"
#include "script/finding.h"

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace kevra {

class AnalysisThread {
public:
    struct Request {
        std::string text;
        page::DocumentPlace place;
        std::uint64_t revision = 0; ///< of the text, returned with the result
    };
    /// Called on that thread. The request is returned with its text, so that its memory can be reused.
    using Done = std::function<void(Request request, std::vector<script::Finding> findings)>;

    explicit AnalysisThread(Done done);

    /// Replaces a request that has not begun. The thread is started by the first one.
    void start(Request request);

private:
    void run(const std::stop_token &stop);

    page::DocumentAnalysis m_analysis; ///< used by the thread only
    Done m_done;
    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::optional<Request> m_next;
    std::jthread m_thread; ///< last, so that it ends first
};

} // namespace kevra
