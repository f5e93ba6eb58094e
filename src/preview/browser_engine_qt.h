// SPDX-License-Identifier: GPL-3.0-or-later
// What the editor and the plugin with the web engine say to each other. The plugin decides nothing.
#pragma once

#include "preview/request_rules.h"

#include <QtCore/QUrl>
#include <QtCore/QtPlugin>

#include <memory>

class QWidget;

namespace kevra {

class BrowserEvents {
public:
    virtual ~BrowserEvents() = default;
    [[nodiscard]] virtual bool beforeNavigate(const QUrl &url, bool mainFrame) = 0;
    [[nodiscard]] virtual bool allowsRequest(const QUrl &url, Resource kind) = 0;
    /// Also for what the engine does not navigate to: fragments, new windows, downloads, other schemes.
    virtual void linkClicked(const QUrl &url) = 0;
    virtual void loadProgress(int percent) = 0; ///< 0 when loading starts, 100 when it is over
    virtual void loadFinished() = 0;
    virtual void processDied() = 0; ///< not by unload()
    virtual void found(int place, int places) = 0; ///< which of how many, both 0 for none
};

class BrowserEngine {
public:
    virtual ~BrowserEngine() = default;
    [[nodiscard]] virtual QWidget *widget() = 0; ///< owned by the engine
    virtual void navigate(const QUrl &url) = 0; ///< in a new page of its own, with a process of its own
    virtual void follow(const QUrl &url) = 0; ///< in the page there is
    virtual void runScript(const QString &script) = 0;
    virtual void unload() = 0; ///< ends the page and its process
    virtual void zoom(int steps) = 0; ///< 0: back to the natural size; stays from page to page
    virtual void find(const QString &text, bool backward) = 0; ///< and marks; an empty text ends that
    [[nodiscard]] virtual bool isSandboxed() const = 0;
};

class BrowserEnginePlugin {
public:
    virtual ~BrowserEnginePlugin() = default;
    [[nodiscard]] virtual std::unique_ptr<BrowserEngine> create(QWidget *parent, BrowserEvents &events) = 0;
};

} // namespace kevra

Q_DECLARE_INTERFACE(kevra::BrowserEnginePlugin, "org.kevra.BrowserEnginePlugin/1")
