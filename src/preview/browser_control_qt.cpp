// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/browser_control_qt.h"

#include "desktop/text_qt.h"
#include "preview/browser_window.h"
#include "preview/engine_loader_qt.h"
#include "preview/page_clipboard_qt.h"
#include "preview/preview_commands.h"

#include <utility>

namespace kevra {

BrowserControlQt::BrowserControlQt(BrowserWindow &window)
    : m_window(window)
{
}

BrowserControlQt::~BrowserControlQt() = default;

bool BrowserControlQt::loadEngine()
{
    if (m_engine)
        return true;
    m_engine = makeEngine(&m_window, {*this, m_requests, *this, *this}, EngineUse::Window);
    if (!m_engine)
        return false;
    m_window.setPageWidget(m_engine->display().widget());
    if (!m_engine->isSandboxed())
        m_window.showNote("The page is shown without the browser's sandbox");
    return true;
}

bool BrowserControlQt::navigate(const std::string &path, const PageScope &scope)
{
    if (!loadEngine())
        return false;
    m_requests.begin(path, scope);
    m_askedPath = path;
    m_engine->navigate(m_requests.address(m_requests.document()));
    if (std::exchange(m_zoomedPath, path) != path)
        m_engine->display().zoomBy(0);
    return true;
}

void BrowserControlQt::follow(const std::string &address)
{
    if (!m_engine)
        return;
    const QUrl url(QString::fromStdString(address));
    m_engine->follow(url.isLocalFile() ? m_requests.address(url) : url);
}

void BrowserControlQt::resizeTo(int width, int height)
{
    if (m_engine)
        m_engine->runScript(QString("window.resizeTo(%1, %2)").arg(width).arg(height));
}

void BrowserControlQt::unload()
{
    m_askedPath.clear();
    m_requests.end();
    if (m_engine)
        m_engine->unload();
    m_window.showProgress(100);
}

void BrowserControlQt::zoomBy(int steps)
{
    if (m_engine)
        m_engine->display().zoomBy(steps);
}

void BrowserControlQt::find(const QString &text, bool backward)
{
    if (m_engine)
        m_engine->display().find(text, backward);
}

void BrowserControlQt::found(int place, int places)
{
    m_window.showFound(place, places);
}

bool BrowserControlQt::mayNavigate(const QUrl &shown, bool mainFrame)
{
    const auto url = plainUrl(shown);
    Navigation target{textOfUrl(url), {}, mainFrame ? Frame::Main : Frame::Sub};
    if (url == m_requests.document())
        target.path = m_askedPath;
    else if (url.isLocalFile())
        target.path = pathBytes(url);
    // An empty frame is made, not gone to.
    if (!mainFrame && url.scheme() == "about")
        return true;
    return m_commands->beforeNavigate(target);
}

void BrowserControlQt::linkClicked(const QUrl &url)
{
    m_commands->linkClicked(textOfUrl(plainUrl(url)));
}

void BrowserControlQt::copyRequested()
{
    allowPageCopy();
}

void BrowserControlQt::loadProgress(int percent)
{
    m_window.showProgress(percent);
}

void BrowserControlQt::loadFinished()
{
    m_commands->navigationComplete();
}

void BrowserControlQt::processDied()
{
    m_commands->pageFailed();
}

} // namespace kevra
