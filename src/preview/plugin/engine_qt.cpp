// SPDX-License-Identifier: GPL-3.0-or-later
// BrowserEngine over the web engine. Everything a previewed page does not need is off.
#include "preview/plugin/accessibility_limit_qt.h"
#include "preview/plugin/engine_start_qt.h"
#include "preview/plugin/graphics_qt.h"
#include "preview/plugin/page_colours_qt.h"
#include "preview/plugin/page_profiles_qt.h"
#include "preview/plugin/page_qt.h"
#include "preview/plugin/page_scheme_qt.h"
#include "preview/plugin/page_watch_qt.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtGui/QWheelEvent>
#include <QtWebEngineCore/QWebEngineFindTextResult>
#include <QtWebEngineCore/QWebEngineSettings>
#include <QtWebEngineWidgets/QWebEngineView>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kevra {

namespace {

constexpr int timeBetweenLooks = 100; ///< ms

struct Switch {
    QWebEngineSettings::WebAttribute attribute;
    bool on;
};
constexpr Switch switches[] = {
    {QWebEngineSettings::LocalContentCanAccessFileUrls, false},
    {QWebEngineSettings::LocalContentCanAccessRemoteUrls, false},
    {QWebEngineSettings::JavascriptCanOpenWindows, false},
    {QWebEngineSettings::JavascriptCanAccessClipboard, false},
    {QWebEngineSettings::JavascriptCanPaste, false},
    {QWebEngineSettings::AllowWindowActivationFromJavaScript, false},
    {QWebEngineSettings::AllowRunningInsecureContent, false},
    {QWebEngineSettings::AllowGeolocationOnInsecureOrigins, false},
    {QWebEngineSettings::PluginsEnabled, false},
    {QWebEngineSettings::PdfViewerEnabled, false},
    {QWebEngineSettings::FullScreenSupportEnabled, false},
    {QWebEngineSettings::ScreenCaptureEnabled, false},
    {QWebEngineSettings::HyperlinkAuditingEnabled, false},
    {QWebEngineSettings::DnsPrefetchEnabled, false},
    {QWebEngineSettings::ErrorPageEnabled, false},
    {QWebEngineSettings::WebRTCPublicInterfacesOnly, true},
    {QWebEngineSettings::PlaybackRequiresUserGesture, true},
    {QWebEngineSettings::NavigateOnDropEnabled, false},
};

class Engine : public BrowserEngine, private PageDisplay, private QObject {
public:
    Engine(QWidget *parent, const BrowserClient &client, EngineUse use, bool sandboxed)
        : m_view(new QWebEngineView(parent))
        , m_client(client)
        , m_use(use)
        , m_profiles(client.requests)
        , m_watch([this](pid_t process) {
            // The engine would tell of it behind all that the page has asked of it.
            QMetaObject::invokeMethod(
                this,
                [this, process] {
                    if (process == m_watched)
                        m_page->tellEnded();
                },
                Qt::QueuedConnection);
        })
        , m_sandboxed(sandboxed)
    {
        m_view->setContextMenuPolicy(Qt::NoContextMenu);
        m_view->installEventFilter(this);
        limitPageAccessibility();
        connect(&m_profiles, &PageProfiles::downloadAsked, this, [this](const QUrl &url) {
            if (m_page)
                m_page->linkClicked(url);
        });
        connect(&m_looks, &QTimer::timeout, this, [this] { watchProcess(); });
        m_looks.start(timeBetweenLooks);
        navigateNowhere();
    }
    ~Engine() override
    {
        delete m_view;
        m_page.reset();
    }

    PageDisplay &display() override { return *this; }
    bool isSandboxed() const override { return m_sandboxed; }
    void navigate(const QUrl &url) override
    {
        newPage();
        m_hasPage = true;
        applyColours();
        m_page->load(url);
    }
    void follow(const QUrl &url) override
    {
        if (m_page)
            m_page->setUrl(url);
    }
    void reload() override { m_page->triggerAction(QWebEnginePage::Reload); }
    void runScript(const QString &script) override
    {
        if (m_page)
            m_page->runJavaScript(script);
    }
    void ask(const QString &call, std::function<void(const QString &)> answered) override;
    void unload() override
    {
        m_hasPage = false;
        navigateNowhere();
    }

private:
    QWidget *widget() override { return m_view; }
    void zoomBy(int steps) override;
    void setZoomFactor(double factor) override;
    void setDark(bool dark) override;
    void find(const QString &text, bool backward) override;

    void newPage();
    void applyColours();
    /// No signal reports reliably that a page got a process, or another one.
    void watchProcess();
    /// Without a page the view would make one of its own, in the profile that writes to the disk.
    void navigateNowhere() { newPage(); }
    bool eventFilter(QObject *watched, QEvent *event) override;

    QPointer<QWebEngineView> m_view;
    BrowserClient m_client;
    EngineUse m_use;
    PageProfiles m_profiles;
    std::unique_ptr<Page> m_page; ///< goes before the profile it lives in
    std::unique_ptr<QWebEngineProfile> m_inspectors; ///< of all pages
    std::unique_ptr<PageColours> m_colours; ///< goes before its page
    bool m_dark = false;
    bool m_hasPage = false; ///< that was asked for
    pid_t m_watched = 0; ///< the process of the page, 0 before it is known
    PageWatch m_watch;
    QTimer m_looks;
    qreal m_zoom = 1;
    bool m_sandboxed;
};

void Engine::newPage()
{
    m_colours.reset();
    auto &profile = m_profiles.forNewPage();
    m_watched = 0;
    m_watch.begin();
    const auto oldPage = std::exchange(m_page, std::make_unique<Page>(&profile, m_client, m_use));
    connect(m_page.get(), &QWebEnginePage::loadProgress, this, [this] { watchProcess(); });
    for (const auto &each : switches)
        m_page->settings()->setAttribute(each.attribute, each.on);
    m_page->settings()->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
    m_page->setZoomFactor(m_zoom);
    m_view->setPage(m_page.get());
    if (m_use == EngineUse::Window)
        m_view->setFocus(); // it went with the page before
}

void Engine::watchProcess()
{
    if (!m_page)
        return;
    m_watched = static_cast<pid_t>(m_page->renderProcessPid());
    m_watch.setProcess(m_watched);
}

void Engine::zoomBy(int steps)
{
    setZoomFactor(steps == 0 ? 1 : m_zoom * std::pow(1.1, steps));
}

void Engine::setZoomFactor(double factor)
{
    m_zoom = std::clamp(factor, 0.25, 5.0);
    m_page->setZoomFactor(m_zoom);
}

void Engine::setDark(bool dark)
{
    m_dark = dark;
    applyColours();
}

void Engine::applyColours()
{
    if (!m_hasPage)
        return;
    if (m_dark && !m_inspectors)
        m_inspectors = std::make_unique<QWebEngineProfile>(); // without a name it is off the record
    if (m_dark && !m_colours)
        m_colours = std::make_unique<PageColours>(*m_page, *m_inspectors);
    if (m_colours)
        m_colours->setDark(m_dark);
}

void Engine::ask(const QString &call, std::function<void(const QString &)> answered)
{
    m_page->runJavaScript(call, followingWorld,
        [answered = std::move(answered)](const QVariant &answer) { answered(answer.toString()); });
}

void Engine::find(const QString &text, bool backward)
{
    const auto flags = backward ? QWebEnginePage::FindBackward : QWebEnginePage::FindFlags();
    m_page->findText(text, flags, [this](const QWebEngineFindTextResult &result) {
        m_client.display.found(result.activeMatch(), result.numberOfMatches());
    });
}

bool Engine::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ChildAdded) {
        static_cast<QChildEvent *>(event)->child()->installEventFilter(this);
    } else if (event->type() == QEvent::Wheel) {
        const auto *wheel = static_cast<QWheelEvent *>(event);
        if (wheel->modifiers() == Qt::ControlModifier && wheel->angleDelta().y() != 0) {
            m_client.display.zoomRequested(wheel->angleDelta().y() > 0 ? 1 : -1);
            return true;
        }
    } else if (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->matches(QKeySequence::Copy) || key->matches(QKeySequence::Cut))
            m_client.display.copyRequested();
    } else if (event->type() == QEvent::DragEnter || event->type() == QEvent::Drop) {
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace

class EnginePlugin : public QObject, public BrowserEnginePlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.kevra.BrowserEnginePlugin/5")
    Q_INTERFACES(kevra::BrowserEnginePlugin)

public:
    std::unique_ptr<BrowserEngine> create(
        QWidget *parent, const BrowserClient &client, EngineUse use, const QString &folder) override
    {
        registerPageSchemes();
        avoidEmulatedGraphics();
        const EngineStart start(folder);
        return start.isPossible() ? std::make_unique<Engine>(parent, client, use, start.isSandboxed())
                                  : nullptr;
    }
};

} // namespace kevra

#include "engine_qt.moc"
