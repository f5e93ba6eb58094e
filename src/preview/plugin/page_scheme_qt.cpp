// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/plugin/page_scheme_qt.h"

#include "preview/plugin/web_fetch_qt.h"

#include <QtWebEngineCore/QWebEngineProfile>
#include <QtWebEngineCore/QWebEngineUrlRequestInterceptor>
#include <QtWebEngineCore/QWebEngineUrlRequestJob>
#include <QtWebEngineCore/QWebEngineUrlScheme>
#include <QtWebEngineCore/QWebEngineUrlSchemeHandler>

namespace kevra {

namespace {

using Scheme = QWebEngineUrlScheme;
using Request = QWebEngineUrlRequestInfo;

struct SchemeRow {
    std::string_view name;
    Scheme::Flags flags;
};

// Documents may lead to files: the engine's own reading of them is what taints a canvas. What is CORS-enabled
// can be read by the page that is allowed to have it.
constexpr Scheme::Flags everyScheme{Scheme::SecureScheme | Scheme::ContentSecurityPolicyIgnored};
const SchemeRow schemes[] = {
    {scheme::page, everyScheme | Scheme::LocalAccessAllowed},
    {scheme::part, everyScheme | Scheme::CorsEnabled},
    {scheme::web, everyScheme | Scheme::CorsEnabled},
};

constexpr int securePort = 443;

QByteArray bytes(std::string_view name)
{
    return {name.data(), static_cast<qsizetype>(name.size())};
}

Resource resourceOf(Request::ResourceType type)
{
    switch (type) {
    case Request::ResourceTypeMainFrame:
        return Resource::MainFrame;
    case Request::ResourceTypeSubFrame:
        return Resource::SubFrame;
    case Request::ResourceTypeStylesheet:
        return Resource::Style;
    case Request::ResourceTypeScript:
        return Resource::Script;
    case Request::ResourceTypeImage:
    case Request::ResourceTypeFavicon:
        return Resource::Image;
    case Request::ResourceTypeFontResource:
        return Resource::Font;
    case Request::ResourceTypeMedia:
        return Resource::Media;
    default:
        return Resource::Other;
    }
}

class RequestFilter : public QWebEngineUrlRequestInterceptor {
public:
    RequestFilter(RequestGate &requests, QObject *parent)
        : QWebEngineUrlRequestInterceptor(parent)
        , m_requests(requests)
    {
    }
    void interceptRequest(Request &request) override
    {
        const bool sends = request.requestMethod() != "GET";
        const auto to = m_requests.route(request.requestUrl(), resourceOf(request.resourceType()), sends);
        if (!to)
            request.block(true);
        else if (*to != request.requestUrl())
            request.redirect(*to);
    }

private:
    RequestGate &m_requests;
};

/// Workers of some kinds get here past the filter: an address that was not made for them is refused.
class SchemeHandler : public QWebEngineUrlSchemeHandler {
public:
    SchemeHandler(RequestGate &requests, QObject *parent)
        : QWebEngineUrlSchemeHandler(parent)
        , m_requests(requests)
        , m_web(requests)
    {
    }
    void requestStarted(QWebEngineUrlRequestJob *job) override
    {
        auto answer = m_requests.answer(job->requestUrl());
        switch (answer.kind) {
        case PageAnswer::Kind::Refused:
            return job->fail(QWebEngineUrlRequestJob::RequestDenied);
        case PageAnswer::Kind::File:
            return sendFile(*job, std::move(answer.file));
        case PageAnswer::Kind::Elsewhere:
            return job->redirect(answer.url);
        case PageAnswer::Kind::Web:
            return m_web.fetch(*job, answer.url);
        }
    }

private:
    static void sendFile(QWebEngineUrlRequestJob &job, PageFile file)
    {
        if (!file.content)
            return job.fail(QWebEngineUrlRequestJob::UrlNotFound);
        file.content->setParent(&job);
        job.reply(file.type, file.content.release());
    }

    RequestGate &m_requests;
    WebFetch m_web;
};

} // namespace

void registerPageSchemes()
{
    for (const auto &row : schemes) {
        if (!Scheme::schemeByName(bytes(row.name)).name().isEmpty())
            continue;
        Scheme scheme(bytes(row.name));
        scheme.setSyntax(row.name == scheme::web ? Scheme::Syntax::HostAndPort : Scheme::Syntax::Host);
        if (row.name == scheme::web)
            scheme.setDefaultPort(securePort);
        scheme.setFlags(row.flags);
        Scheme::registerScheme(scheme);
    }
}

void installPageSchemes(QWebEngineProfile &profile, RequestGate &requests)
{
    profile.setUrlRequestInterceptor(new RequestFilter(requests, &profile));
    auto *handler = new SchemeHandler(requests, &profile);
    for (const auto &row : schemes)
        profile.installUrlSchemeHandler(bytes(row.name), handler);
}

} // namespace kevra
