// SPDX-License-Identifier: GPL-3.0-or-later
// The profiles that pages live in. None of them leaves anything behind.
#pragma once

#include "preview/browser_engine_qt.h"

#include <QtCore/QObject>
#include <QtWebEngineCore/QWebEngineProfile>

#include <cstdint>
#include <memory>
#include <vector>

namespace kevra {

/// Pages follow one another in one profile: each has an origin of its own there, and the engine keeps some
/// kilobytes of every profile that ever was. One that pages have filled makes room for another.
class PageProfiles : public QObject {
    Q_OBJECT

public:
    explicit PageProfiles(RequestGate &requests)
        : m_requests(requests)
    {
    }

    /// For a new page. The page before may still be there; it has to go before the program goes on.
    [[nodiscard]] QWebEngineProfile &forNewPage();

signals:
    void downloadAsked(const QUrl &url); ///< and refused

private:
    void begin();
    void retire();

    RequestGate &m_requests;
    std::unique_ptr<QWebEngineProfile> m_current;
    std::vector<std::unique_ptr<QWebEngineProfile>> m_retired; ///< oldest first
    std::int64_t m_before = 0; ///< bytes the editor held when the current one began
};

} // namespace kevra
