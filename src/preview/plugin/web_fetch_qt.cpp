// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/plugin/web_fetch_qt.h"

#include <QtCore/QBuffer>
#include <QtCore/QPointer>
#include <QtNetwork/QNetworkInterface>
#include <QtNetwork/QNetworkProxy>
#include <QtNetwork/QNetworkReply>
#include <QtWebEngineCore/QWebEngineUrlRequestJob>

#include <algorithm>

namespace kevra {

namespace {

constexpr int fetchTime = 30'000; ///< ms without a byte
constexpr qint64 maxBytes = 64 << 20; ///< of one part of a page

NetworkAddress networkAddress(const QHostAddress &address)
{
    const auto bytes = address.toIPv6Address();
    NetworkAddress result{};
    std::copy(std::begin(bytes.c), std::end(bytes.c), result.begin());
    return result;
}

/// To the address itself, so that no second look-up can lead somewhere else; the name is for the certificate
/// and for the server.
QNetworkRequest requestFor(const QUrl &url, const QHostAddress &address)
{
    QUrl direct(url);
    direct.setHost(address.toString());
    QNetworkRequest request(direct);
    request.setPeerVerifyName(url.host());
    request.setRawHeader("Host", url.authority(QUrl::FullyEncoded).toLatin1());
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setTransferTimeout(fetchTime);
    return request;
}

void answer(QWebEngineUrlRequestJob &job, QNetworkReply &reply, const QUrl &asked)
{
    const auto redirect = reply.attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (!redirect.isEmpty())
        return job.redirect(asked.resolved(redirect));
    if (reply.error() != QNetworkReply::NoError)
        return job.fail(QWebEngineUrlRequestJob::UrlNotFound);
    // Not the reply itself: the engine would wait for the end of what has no size.
    auto *content = new QBuffer(&job);
    content->setData(reply.readAll());
    content->open(QIODevice::ReadOnly);
    job.reply(reply.rawHeader("Content-Type"), content);
}

} // namespace

WebFetch::WebFetch(RequestGate &requests)
    : m_requests(requests)
{
    m_network.setProxy(QNetworkProxy::NoProxy);
}

void WebFetch::fetch(QWebEngineUrlRequestJob &job, const QUrl &url)
{
    QHostInfo::lookupHost(
        url.host(), &m_lookups, [this, url, asking = QPointer(&job)](const QHostInfo &host) {
            if (asking)
                connectTo(*asking, url, host);
        });
}

/// A name that leads to one address here and one elsewhere is a trick.
bool WebFetch::mayConnect(const QList<QHostAddress> &addresses) const
{
    const auto own = QNetworkInterface::allAddresses();
    return std::ranges::all_of(addresses, [&](const QHostAddress &address) {
        return !own.contains(address) && m_requests.mayConnect(networkAddress(address));
    });
}

void WebFetch::connectTo(QWebEngineUrlRequestJob &job, const QUrl &url, const QHostInfo &host)
{
    const auto addresses = host.addresses();
    if (addresses.isEmpty() || !mayConnect(addresses))
        return job.fail(QWebEngineUrlRequestJob::RequestDenied);
    auto *reply = m_network.get(requestFor(url, addresses.front()));
    QObject::connect(&job, &QObject::destroyed, reply, &QObject::deleteLater);
    QObject::connect(reply, &QNetworkReply::downloadProgress, reply, [reply](qint64 received, qint64) {
        if (received > maxBytes)
            reply->abort();
    });
    QObject::connect(reply, &QNetworkReply::finished, &job, [&job, reply, url] { answer(job, *reply, url); });
}

} // namespace kevra
