// SPDX-License-Identifier: GPL-3.0-or-later
// The browser control over the plugin with the web engine, which is loaded when the first page is asked for.
#pragma once

#include "preview/browser_control.h"
#include "preview/page_requests_qt.h"

#include <QtCore/QString>

#include <functional>
#include <memory>

namespace kevra {

class BrowserWindow;
class PreviewCommands;

class BrowserControlQt : public BrowserControl,
                         private NavigationGate,
                         private PageEvents,
                         private DisplayEvents {
public:
    explicit BrowserControlQt(BrowserWindow &window);
    ~BrowserControlQt() override;

    /// Who decides. Set before the first page is asked for.
    void setCommands(PreviewCommands &commands) { m_commands = &commands; }
    void setRemote(Remote remote) { m_requests.setRemote(remote); }

    [[nodiscard]] bool navigate(const std::string &path, const PageScope &scope) override;
    void follow(const std::string &address) override;
    void resizeTo(int width, int height) override;
    void unload() override;
    void zoomBy(int steps); ///< 0: back to the natural size
    void find(const QString &text, bool backward);

private:
    [[nodiscard]] bool mayNavigate(const QUrl &url, bool mainFrame) override;

    void linkClicked(const QUrl &url) override;
    void loadProgress(int percent) override;
    void loadFinished() override;
    void processDied() override;

    void copyRequested() override;
    void zoomRequested(int steps) override { zoomBy(steps); }
    void found(int place, int places) override;

    [[nodiscard]] bool loadEngine();

    BrowserWindow &m_window;
    PreviewCommands *m_commands = nullptr;
    std::unique_ptr<BrowserEngine> m_engine;
    PageRequests m_requests;
    std::string m_askedPath; ///< as it was asked for
    std::string m_zoomedPath; ///< the page whose size the user chose
};

} // namespace kevra
