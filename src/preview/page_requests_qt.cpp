// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/page_requests_qt.h"

#include "desktop/program_folders_qt.h"
#include "desktop/text_qt.h"
#include "storage/native_path.h"

#include <QtCore/QMessageAuthenticationCode>
#include <QtCore/QRandomGenerator>

#include <filesystem>

namespace kevra {

namespace {

/// A name need not be valid text; QUrl::fromLocalFile would lose the bytes that are not.
QUrl addressOfFile(const std::string &path)
{
    const auto bytes = QByteArray::fromStdString(path);
    return QUrl::fromEncoded("file://" + bytes.toPercentEncoding("/!$&'()*+,;=:@"));
}

PageAddress pageAddress(const QUrl &url)
{
    const auto path = url.path(QUrl::FullyEncoded).toLatin1();
    auto rest = path;
    if (url.hasQuery())
        rest += '?' + url.query(QUrl::FullyEncoded).toLatin1();
    if (url.hasFragment())
        rest += '#' + url.fragment(QUrl::FullyEncoded).toLatin1();
    return {url.scheme().toStdString(), url.authority(QUrl::FullyEncoded).toLower().toStdString(),
        QByteArray::fromPercentEncoding(path).toStdString(), rest.toStdString()};
}

QUrl urlOf(const PageAddress &address)
{
    return QUrl::fromEncoded(
        QByteArray::fromStdString(address.scheme + "://" + address.host + address.rest), QUrl::StrictMode);
}

/// With a key of its own, so that what one page has learned is worth nothing to the next.
PageRoutes::Sign newSignature()
{
    QByteArray key(32, 0);
    QRandomGenerator::system()->generate(key.begin(), key.end());
    return [key](std::string_view text) {
        const auto code = QMessageAuthenticationCode::hash(
            QByteArray(text.data(), static_cast<qsizetype>(text.size())), key, QCryptographicHash::Sha256);
        return code.first(16).toHex().toStdString();
    };
}

/// With links and ".." resolved, so that no way around leads out of a folder.
std::string resolved(const std::string &path)
{
    std::error_code missing;
    const auto canonical = std::filesystem::canonical(path, missing);
    return (missing ? std::filesystem::path(path).lexically_normal() : canonical).string();
}

} // namespace

std::string textOfUrl(const QUrl &url)
{
    return url.toString(QUrl::FullyEncoded).toStdString();
}

QUrl plainUrl(const QUrl &url)
{
    const auto address = pageAddress(url);
    const auto known = plainAddress(address);
    return known == address ? url : urlOf(known);
}

PageRequests::PageRequests()
    : m_routes(newSignature())
{
}

void PageRequests::begin(const std::string &path, const PageScope &scope)
{
    m_scope = {resolved(nativePath(scope.folder, documentsFolder())),
        resolved(nativePath(scope.site, documentsFolder()))};
    m_document = addressOfFile(nativePath(path, documentsFolder()));
    m_routes = PageRoutes(newSignature());
}

void PageRequests::end()
{
    m_document.clear();
}

QUrl PageRequests::address(const QUrl &file) const
{
    return urlOf(m_routes.document(pageAddress(file)));
}

std::optional<QUrl> PageRequests::route(const QUrl &url, Resource kind, bool sends)
{
    const auto known = plainUrl(url);
    PageRequest request{kind, known.scheme().toStdString(), {}, sends};
    if (known.isLocalFile())
        request.path = resolved(pathBytes(known));
    if (!allowsRequest(request, m_scope, m_remote))
        return std::nullopt;
    const auto asked = pageAddress(url);
    const auto next = m_routes.next(kind, asked);
    if (!next)
        return std::nullopt;
    const auto target = *next == asked ? url : urlOf(*next);
    return target.isValid() ? std::optional(target) : std::nullopt;
}

SchemeAnswer PageRequests::answer(const QUrl &url)
{
    const auto given = m_routes.answer(pageAddress(url));
    SchemeAnswer answer{given.kind, urlOf(given.address), {}};
    if (given.kind == PageAnswer::Kind::File)
        answer.file = openPageFile(given.address.path);
    if (given.kind == PageAnswer::Kind::Web && m_remote == Remote::Off)
        answer.kind = PageAnswer::Kind::Refused;
    return answer;
}

bool PageRequests::mayConnect(const NetworkAddress &address) const
{
    return m_remote == Remote::On && isPublic(address);
}

QUrl PageRequests::authorsUrl(const QUrl &url) const
{
    return plainUrl(url);
}

} // namespace kevra
