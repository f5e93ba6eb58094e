// SPDX-License-Identifier: GPL-3.0-or-later
// Where the requests of a page go: the request rules and the routes, over the engine's addresses.
#pragma once

#include "preview/browser_engine_qt.h"

#include <string>

namespace kevra {

class PageRequests : public RequestGate {
public:
    PageRequests();

    /// From now on these are the requests of this document. Paths are bytes as the desktop gave them.
    void begin(const std::string &path, const PageScope &scope);
    void end(); ///< there is no document
    void setRemote(Remote remote) { m_remote = remote; }

    [[nodiscard]] const QUrl &document() const { return m_document; } ///< as its author knows it
    [[nodiscard]] QUrl address(const QUrl &file) const; ///< as the engine is asked for the document in a file

    [[nodiscard]] std::optional<QUrl> route(const QUrl &url, Resource kind, bool sends) override;
    [[nodiscard]] SchemeAnswer answer(const QUrl &url) override;
    [[nodiscard]] bool mayConnect(const NetworkAddress &address) const override;
    [[nodiscard]] QUrl authorsUrl(const QUrl &url) const override;

private:
    PageScope m_scope;
    PageRoutes m_routes;
    Remote m_remote = Remote::Off;
    QUrl m_document;
};

/// As the page's author knows it: a file, https, or what it is.
[[nodiscard]] QUrl plainUrl(const QUrl &url);
[[nodiscard]] std::string textOfUrl(const QUrl &url);

} // namespace kevra
