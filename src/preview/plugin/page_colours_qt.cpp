// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/plugin/page_colours_qt.h"

#include "preview/plugin/page_qt.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWebEngineCore/QWebEngineScript>
#include <QtWebEngineCore/QWebEngineScriptCollection>

#include <chrono>

namespace kevra {

namespace {

constexpr int maxAttempts = 30;
constexpr std::chrono::milliseconds betweenAttempts{150};

// The inspector is a large program in a page. Without its scripts and styles there is only the line it has.
constexpr auto nothingLoaded = R"(
new MutationObserver((changes, observer) => {
    if (!document.head)
        return;
    observer.disconnect();
    const policy = document.createElement('meta');
    policy.httpEquiv = 'Content-Security-Policy';
    policy.content = "default-src 'none'";
    document.head.prepend(policy);
}).observe(document, {childList: true, subtree: true});
)";

constexpr auto message = R"(DevToolsHost.sendMessageToEmbedder(JSON.stringify({
    id: 1, method: 'dispatchProtocolMessage', params: [JSON.stringify({
        id: 1, method: 'Emulation.setEmulatedMedia',
        params: {features: [{name: 'prefers-color-scheme', value: '%1'}]}})]})))";

// The engine does not choose pictures again by itself.
constexpr auto question = R"((() => {
    const dark = matchMedia('(prefers-color-scheme: dark)').matches;
    if (dark === %1) {
        for (const source of document.querySelectorAll('picture > source[media*="prefers-color-scheme"]'))
            [source.media, source.media] = ['', source.media];
    }
    return dark;
})())";

} // namespace

PageColours::PageColours(QWebEnginePage &page, QWebEngineProfile &profile)
    : m_page(page)
    , m_inspector(&profile)
{
    QWebEngineScript script;
    script.setSourceCode(nothingLoaded);
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    m_inspector.scripts().insert(script);
    connect(&m_inspector, &QWebEnginePage::loadFinished, this, [this] {
        m_ready = true;
        send();
    });
    connect(&m_page, &QWebEnginePage::loadFinished, this, [this] { setDark(m_dark); });
    m_page.setDevToolsPage(&m_inspector);
}

PageColours::~PageColours()
{
    m_page.setDevToolsPage(nullptr);
}

void PageColours::setDark(bool dark)
{
    m_dark = dark;
    m_attempts = 0;
    send();
}

void PageColours::send()
{
    if (!m_ready)
        return;
    m_inspector.runJavaScript(QString(message).arg(m_dark ? "dark" : "light"));
    QTimer::singleShot(betweenAttempts, this, [this] { check(); });
}

/// The inspector does not say when its line is open.
void PageColours::check()
{
    const auto answered = [self = QPointer(this)](const QVariant &answer) {
        if (self && answer.toBool() != self->m_dark && ++self->m_attempts < maxAttempts)
            self->send();
    };
    m_page.runJavaScript(QString(question).arg(m_dark ? "true" : "false"), followingWorld, answered);
}

} // namespace kevra
