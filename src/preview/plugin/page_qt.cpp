// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/plugin/page_qt.h"

#include <QtCore/QTimer>
#include <QtCore/QUuid>
#include <QtWebEngineCore/QWebEngineFullScreenRequest>
#include <QtWebEngineCore/QWebEngineNewWindowRequest>
#include <QtWebEngineCore/QWebEngineScript>
#include <QtWebEngineCore/QWebEngineScriptCollection>

#include <csignal>

namespace kevra {

namespace {

constexpr int mostDialogs = 3;

// Every click on a link is the program's to decide on, before the page's own handlers can end it. It runs in
// a world of its own, which the page cannot reach.
constexpr auto linkScript = R"(
(function () {
    function clicked(event) {
        if (event.type === 'auxclick' && event.button !== 1)
            return;
        for (const node of event.composedPath()) {
            const href = node.href;
            if (href === undefined || !node.matches || !node.matches('a, area'))
                continue;
            event.preventDefault();
            // In a picture it is what is written there, not where it leads.
            console.info('%1' + (typeof href === 'string' ? href : new URL(href.baseVal, node.baseURI).href));
            return;
        }
    }
    window.addEventListener('click', clicked, true);
    window.addEventListener('auxclick', clicked, true);
})();
)";

// There is no setting for this one, and it talks to the network past the request filter.
constexpr auto noPeerScript = R"(
for (const name of ['RTCPeerConnection', 'webkitRTCPeerConnection', 'WebTransport'])
    Object.defineProperty(window, name, { value: undefined, writable: false, configurable: false });
)";

void insert(QWebEnginePage &page, const QString &source, QWebEngineScript::ScriptWorldId world)
{
    QWebEngineScript script;
    script.setSourceCode(source);
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setRunsOnSubFrames(true);
    script.setWorldId(world);
    page.scripts().insert(script);
}

} // namespace

Page::Page(QWebEngineProfile *profile, BrowserEvents &events, QObject *parent)
    : QWebEnginePage(profile, parent)
    , m_events(events)
    , m_linkMark(QUuid::createUuid().toString())
{
    refuseWhatNobodyAskedFor();
    insertLinkScript();
    connect(this, &QWebEnginePage::loadStarted, this, [this] {
        if (!m_ending)
            m_events.loadProgress(0);
    });
    connect(this, &QWebEnginePage::loadProgress, this, [this](int percent) {
        if (percent < 100 && !m_ending)
            m_events.loadProgress(percent);
    });
    connect(this, &QWebEnginePage::loadFinished, this, [this] {
        if (m_ending)
            return;
        m_events.loadProgress(100);
        m_events.loadFinished();
    });
    // The page goes with the message, and the engine is still speaking of it now. A queued connection would
    // copy the status, which the engine may give a value that is none of its own.
    connect(this, &QWebEnginePage::renderProcessTerminated, this, [this] {
        QTimer::singleShot(0, this, [this] {
            if (!m_ending)
                m_events.processDied();
        });
    });
}

Page::~Page()
{
    m_ending = true;
    // A script that never ends would go on until its process is told to stop, which it does not hear.
    if (const auto process = renderProcessPid(); process > 0)
        ::kill(static_cast<pid_t>(process), SIGKILL);
}

void Page::refuseWhatNobodyAskedFor()
{
    connect(this, &QWebEnginePage::newWindowRequested, this,
        [this](QWebEngineNewWindowRequest &request) { m_events.linkClicked(request.requestedUrl()); });
    connect(this, &QWebEnginePage::fullScreenRequested, this,
        [](QWebEngineFullScreenRequest request) { request.reject(); });
    connect(
        this, &QWebEnginePage::featurePermissionRequested, this, [this](const QUrl &origin, Feature feature) {
            setFeaturePermission(origin, feature, PermissionDeniedByUser);
        });
}

void Page::insertLinkScript()
{
    insert(*this, QString(linkScript).arg(m_linkMark), QWebEngineScript::ApplicationWorld);
    insert(*this, noPeerScript, QWebEngineScript::MainWorld);
}

bool Page::acceptNavigationRequest(const QUrl &url, NavigationType, bool isMainFrame)
{
    return m_events.beforeNavigate(url, isMainFrame);
}

QWebEnginePage *Page::createWindow(WebWindowType)
{
    return nullptr;
}

QStringList Page::chooseFiles(FileSelectionMode, const QStringList &, const QStringList &)
{
    return {};
}

bool Page::mayShowDialog()
{
    return !m_ending && ++m_dialogs <= mostDialogs;
}

void Page::javaScriptAlert(const QUrl &origin, const QString &message)
{
    if (mayShowDialog())
        QWebEnginePage::javaScriptAlert(origin, message);
}

bool Page::javaScriptConfirm(const QUrl &origin, const QString &message)
{
    return mayShowDialog() && QWebEnginePage::javaScriptConfirm(origin, message);
}

bool Page::javaScriptPrompt(
    const QUrl &origin, const QString &message, const QString &initial, QString *answer)
{
    return mayShowDialog() && QWebEnginePage::javaScriptPrompt(origin, message, initial, answer);
}

void Page::javaScriptConsoleMessage(
    JavaScriptConsoleMessageLevel, const QString &message, int, const QString &)
{
    if (message.startsWith(m_linkMark))
        m_events.linkClicked(QUrl(message.sliced(m_linkMark.size())));
}

} // namespace kevra
