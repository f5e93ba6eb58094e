// SPDX-License-Identifier: GPL-3.0-or-later
// Analyses copies of the text on a thread of its own, one at a time.
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
        std::uint64_t revision = 0; ///< of the text, for whoever asked
    };
    /// Called on the thread. The request comes back with its text, whose memory serves the next copy.
    using Done = std::function<void(Request request, std::vector<script::Finding> findings)>;

    explicit AnalysisThread(Done done);

    /// Takes the place of a request that has not begun. The thread is made at the first one.
    void start(Request request);

private:
    void run(const std::stop_token &stop);

    page::DocumentAnalysis m_analysis; ///< of the thread alone
    Done m_done;
    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::optional<Request> m_next;
    std::jthread m_thread; ///< ends first
};

} // namespace kevra
