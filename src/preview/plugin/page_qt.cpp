// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/plugin/page_qt.h"

#include <QtCore/QFile>
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
constexpr int longestAlert = 200; ///< characters

// Every click on a link is the program's to decide on, before the page's own handlers can end it. It runs in
// a world of its own, which the page cannot reach. A page can click on its own links without end.
constexpr auto linkScript = R"(
(function () {
    let second = 0, count = 0;
    function tell(text) {
        const now = Math.floor(performance.now() / 1000);
        count = now === second ? count + 1 : 1;
        second = now;
        if (count <= %2)
            console.info('%1' + text);
    }
    function clicked(event) {
        if (event.type === 'auxclick' && event.button !== 1)
            return;
        for (const node of event.composedPath()) {
            const href = node.href;
            if (href === undefined || !node.matches || !node.matches('a, area'))
                continue;
            event.preventDefault();
            // In a picture it is what is written there, not where it leads.
            tell(typeof href === 'string' ? href : new URL(href.baseVal, node.baseURI).href);
            return;
        }
    }
    window.addEventListener('click', clicked, true);
    window.addEventListener('auxclick', clicked, true);
})();
)";

enum class Frames { All, Main };

void insert(QWebEnginePage &page, const QString &source, quint32 world, Frames frames)
{
    QWebEngineScript script;
    script.setSourceCode(source);
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setRunsOnSubFrames(frames == Frames::All);
    script.setWorldId(world);
    page.scripts().insert(script);
}

} // namespace

Page::Page(QWebEngineProfile *profile, const BrowserClient &client, EngineUse use)
    : QWebEnginePage(profile)
    , m_navigation(client.navigation)
    , m_requests(client.requests)
    , m_events(client.page)
    , m_use(use)
    , m_linkMark(QUuid::createUuid().toString())
    , m_followingMark(QUuid::createUuid().toString())
{
    m_clock.start();
    refuseWhatNobodyAskedFor();
    insertLinkScript();
    if (use == EngineUse::BesideText)
        insertFollowingScript();
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
    connect(this, &QWebEnginePage::renderProcessTerminated, this,
        [this] { QTimer::singleShot(0, this, &Page::tellEnded); });
}

Page::~Page()
{
    m_ending = true;
    endProcess();
}

void Page::tellEnded()
{
    if (!std::exchange(m_ending, true))
        m_events.processDied();
}

void Page::endProcess() const
{
    // A script that never ends would go on until its process is asked to stop, which it does not notice.
    if (const auto process = renderProcessPid(); process > 0)
        ::kill(static_cast<pid_t>(process), SIGKILL);
}

void Page::refuseWhatNobodyAskedFor()
{
    connect(this, &QWebEnginePage::newWindowRequested, this,
        [this](QWebEngineNewWindowRequest &request) { linkClicked(request.requestedUrl()); });
    connect(this, &QWebEnginePage::fullScreenRequested, this,
        [](QWebEngineFullScreenRequest request) { request.reject(); });
    connect(
        this, &QWebEnginePage::featurePermissionRequested, this, [this](const QUrl &origin, Feature feature) {
            setFeaturePermission(origin, feature, PermissionDeniedByUser);
        });
}

void Page::insertLinkScript()
{
    insert(*this, QString(linkScript).arg(m_linkMark).arg(bounds::links), QWebEngineScript::ApplicationWorld,
        Frames::All);
}

void Page::insertFollowingScript()
{
    QFile script(":/preview/following.js");
    if (!script.open(QIODevice::ReadOnly))
        return;
    const auto source = QString::fromUtf8(script.readAll());
    insert(*this, source + QString("(text => console.info('%1' + text));").arg(m_followingMark),
        followingWorld, Frames::Main);
}

bool Page::acceptNavigationRequest(const QUrl &url, NavigationType, bool isMainFrame)
{
    if (m_navigations.allows(m_clock.elapsed()))
        return m_navigation.mayNavigate(url, isMainFrame);
    // Every frame has to be taken down when the page goes, which the user would wait for.
    if (++m_refused == bounds::refusedNavigations)
        endProcess();
    return false;
}

QWebEnginePage *Page::createWindow(WebWindowType)
{
    return nullptr;
}

QStringList Page::chooseFiles(FileSelectionMode, const QStringList &, const QStringList &)
{
    return {};
}

void Page::linkClicked(const QUrl &url)
{
    if (m_links.allows(m_clock.elapsed()))
        m_events.linkClicked(url);
}

bool Page::mayShowDialog(const QString &message)
{
    // Not over the text that somebody is typing.
    if (m_use == EngineUse::BesideText) {
        if (!m_ending && m_alerts.allows(m_clock.elapsed()))
            m_events.pageAlert(message.left(longestAlert));
        return false;
    }
    return !m_ending && ++m_dialogs <= mostDialogs;
}

void Page::javaScriptAlert(const QUrl &origin, const QString &message)
{
    if (mayShowDialog(message))
        QWebEnginePage::javaScriptAlert(m_requests.authorsUrl(origin), message);
}

bool Page::javaScriptConfirm(const QUrl &origin, const QString &message)
{
    return mayShowDialog(message)
        && QWebEnginePage::javaScriptConfirm(m_requests.authorsUrl(origin), message);
}

bool Page::javaScriptPrompt(
    const QUrl &origin, const QString &message, const QString &initial, QString *answer)
{
    return mayShowDialog(message)
        && QWebEnginePage::javaScriptPrompt(m_requests.authorsUrl(origin), message, initial, answer);
}

void Page::javaScriptConsoleMessage(
    JavaScriptConsoleMessageLevel, const QString &message, int, const QString &)
{
    if (m_ending)
        return;
    if (message.startsWith(m_linkMark))
        linkClicked(QUrl(message.sliced(m_linkMark.size())));
    else if (message.startsWith(m_followingMark) && m_messages.allows(m_clock.elapsed()))
        m_events.pageMessage(message.sliced(m_followingMark.size()));
}

} // namespace kevra
