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

class BrowserEvents {
public:
    virtual ~BrowserEvents() = default;
    [[nodiscard]] virtual bool beforeNavigate(const QUrl &url, bool mainFrame) = 0;
    /// Where a request has to go, itself when it may stay; nothing when it is refused. `sends`: it is more
    /// than a question.
    [[nodiscard]] virtual std::optional<QUrl> route(const QUrl &url, Resource kind, bool sends) = 0;
    [[nodiscard]] virtual QUrl plain(const QUrl &url) const = 0; ///< as the page's author knows it
    [[nodiscard]] virtual SchemeAnswer answer(const QUrl &url) = 0;
    [[nodiscard]] virtual bool mayConnect(const NetworkAddress &address) = 0;
    /// Also for what the engine does not navigate to: fragments, new windows, downloads, other schemes.
    virtual void linkClicked(const QUrl &url) = 0;
    virtual void copyAsked() = 0; ///< by a key of the user's, while the page has the keyboard
    virtual void loadProgress(int percent) = 0; ///< 0 when loading starts, 100 when it is over
    virtual void loadFinished() = 0;
    virtual void processDied() = 0; ///< not by unload()
    virtual void found(int place, int places) = 0; ///< which of how many, both 0 for none
    virtual void zoom(int steps) = 0; ///< by the wheel
    /// Only beside the text: a message of the script that follows it, and a message box of the page.
    virtual void pageMessage(const QString &message) { static_cast<void>(message); }
    virtual void pageAlerts(const QString &message) { static_cast<void>(message); }
};

enum class EngineUse {
    Window, ///< the page has the keyboard and may show message boxes
    BesideText, ///< it never takes the keyboard, and a script of ours keeps it equal to the text
};

class BrowserEngine {
public:
    virtual ~BrowserEngine() = default;
    [[nodiscard]] virtual QWidget *widget() = 0; ///< owned by the engine
    virtual void navigate(const QUrl &url) = 0; ///< in a new page of its own, with a process of its own
    virtual void follow(const QUrl &url) = 0; ///< in the page there is
    virtual void reload() = 0; ///< the page there is; the scroll position is restored
    virtual void runScript(const QString &script) = 0;
    virtual void unload() = 0; ///< ends the page and its process
    /// Asks the script that follows the text; `answered` gets nothing from a page that goes before. Only
    /// beside the text.
    virtual void ask(const QString &call, std::function<void(const QString &)> answered) = 0;
    virtual void zoom(int steps) = 0; ///< 0: back to the natural size; stays from page to page
    virtual void setZoom(double factor) = 0; ///< at once and from page to page
    /// Whether pages see a preference for dark colours; stays from page to page. Off at first.
    virtual void setDark(bool dark) = 0;
    virtual void find(const QString &text, bool backward) = 0; ///< and marks; an empty text ends that
    [[nodiscard]] virtual bool isSandboxed() const = 0;
};

class BrowserEnginePlugin {
public:
    virtual ~BrowserEnginePlugin() = default;
    /// Null when the engine's processes cannot be kept from the network. `folder` is where the plugin lies.
    [[nodiscard]] virtual std::unique_ptr<BrowserEngine> create(
        QWidget *parent, BrowserEvents &events, EngineUse use, const QString &folder)
        = 0;
};

} // namespace kevra

Q_DECLARE_INTERFACE(kevra::BrowserEnginePlugin, "org.kevra.BrowserEnginePlugin/4")
