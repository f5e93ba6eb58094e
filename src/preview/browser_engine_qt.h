// SPDX-License-Identifier: GPL-3.0-or-later
// What the editor and the plugin with the web engine say to each other. The plugin decides nothing.
#pragma once

#include "preview/page_file_qt.h"
#include "preview/page_routes.h"
#include "preview/public_address.h"
#include "preview/request_rules.h"

#include <QtCore/QUrl>
#include <QtCore/QtPlugin>

#include <functional>
#include <memory>
#include <optional>

class QWidget;

namespace kevra {

/// What a request of one of the program's own schemes is answered with.
struct SchemeAnswer {
    PageAnswer::Kind kind = PageAnswer::Kind::Refused;
    QUrl url; ///< where to go instead, or what to fetch
    PageFile file;
};

/// Where a page may go.
class NavigationGate {
public:
    virtual ~NavigationGate() = default;
    [[nodiscard]] virtual bool mayNavigate(const QUrl &url, bool mainFrame) = 0;
};

/// Where the requests of a page go.
class RequestGate {
public:
    virtual ~RequestGate() = default;
    /// Where a request has to go, itself when it may stay; nothing when it is refused. `sends`: its method
    /// is not GET.
    [[nodiscard]] virtual std::optional<QUrl> route(const QUrl &url, Resource kind, bool sends) = 0;
    [[nodiscard]] virtual SchemeAnswer answer(const QUrl &url) = 0;
    [[nodiscard]] virtual bool mayConnect(const NetworkAddress &address) const = 0;
    [[nodiscard]] virtual QUrl authorsUrl(const QUrl &url) const = 0; ///< as the page's author knows it
};

/// What a page has done.
class PageEvents {
public:
    virtual ~PageEvents() = default;
    /// Also for what the engine does not navigate to: fragments, new windows, downloads, other schemes.
    virtual void linkClicked(const QUrl &url) = 0;
    virtual void loadProgress(int percent) = 0; ///< 0 when loading starts, 100 when it is over
    virtual void loadFinished() = 0;
    virtual void processDied() = 0; ///< not by unload()
    /// Only beside the text: a message of the script that follows it, and a message box of the page.
    virtual void pageMessage(const QString &message) { static_cast<void>(message); }
    virtual void pageAlert(const QString &message) { static_cast<void>(message); }
};

/// What the user has done in the page's view.
class DisplayEvents {
public:
    virtual ~DisplayEvents() = default;
    virtual void copyRequested() = 0; ///< by a key, while the page has the keyboard
    virtual void zoomRequested(int steps) = 0; ///< by the wheel
    virtual void found(int place, int places) = 0; ///< which of how many, both 0 for none
};

/// Whom an engine asks and notifies. They outlive it.
struct BrowserClient {
    NavigationGate &navigation;
    RequestGate &requests;
    PageEvents &page;
    DisplayEvents &display;
};

enum class EngineUse {
    Window, ///< the page has the keyboard and may show message boxes
    BesideText, ///< it never takes the keyboard, and a script of ours keeps it equal to the text
};

/// How pages are shown; everything set here stays from page to page.
class PageDisplay {
public:
    virtual ~PageDisplay() = default;
    [[nodiscard]] virtual QWidget *widget() = 0; ///< owned by the engine
    virtual void zoomBy(int steps) = 0; ///< 0: back to the natural size
    virtual void setZoomFactor(double factor) = 0;
    /// Whether pages see a preference for dark colours. Off at first.
    virtual void setDark(bool dark) = 0;
    virtual void find(const QString &text, bool backward) = 0; ///< and marks; an empty text ends that
};

class BrowserEngine {
public:
    virtual ~BrowserEngine() = default;
    [[nodiscard]] virtual PageDisplay &display() = 0;
    virtual void navigate(const QUrl &url) = 0; ///< in a new page of its own, with a process of its own
    virtual void follow(const QUrl &url) = 0; ///< in the page there is
    virtual void reload() = 0; ///< the page there is; the scroll position is restored
    virtual void unload() = 0; ///< ends the page and its process
    virtual void runScript(const QString &script) = 0;
    /// Asks the script that follows the text; `answered` gets nothing from a page that goes before. Only
    /// beside the text.
    virtual void ask(const QString &call, std::function<void(const QString &)> answered) = 0;
    [[nodiscard]] virtual bool isSandboxed() const = 0;
};

class BrowserEnginePlugin {
public:
    virtual ~BrowserEnginePlugin() = default;
    /// Null when the engine's processes cannot be kept from the network. `folder` is where the plugin lies.
    [[nodiscard]] virtual std::unique_ptr<BrowserEngine> create(
        QWidget *parent, const BrowserClient &client, EngineUse use, const QString &folder)
        = 0;
};

} // namespace kevra

Q_DECLARE_INTERFACE(kevra::BrowserEnginePlugin, "org.kevra.BrowserEnginePlugin/6")
