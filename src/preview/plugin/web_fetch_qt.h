// SPDX-License-Identifier: GPL-3.0-or-later
// Fetches what a page shows from the web, which the engine itself cannot reach.
#pragma once

#include "preview/browser_engine_qt.h"

#include <QtNetwork/QHostInfo>
#include <QtNetwork/QNetworkAccessManager>

class QWebEngineUrlRequestJob;

namespace kevra {

class WebFetch {
public:
    explicit WebFetch(RequestGate &requests);

    /// Answers `job` with what is found at `url`, which is https. Asks for nothing but the content, keeps and
    /// sends no cookies, and connects to the addresses that were looked at, not to a name.
    void fetch(QWebEngineUrlRequestJob &job, const QUrl &url);

private:
    void connectTo(QWebEngineUrlRequestJob &job, const QUrl &url, const QHostInfo &host);
    [[nodiscard]] bool mayConnect(const QList<QHostAddress> &addresses) const;

    RequestGate &m_requests;
    QNetworkAccessManager m_network;
    QObject m_lookups; ///< those under way end with it
};

} // namespace kevra
