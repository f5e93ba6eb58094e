// SPDX-License-Identifier: GPL-3.0-or-later
// One page from its load to its end, in a profile of its own that leaves nothing behind.
#pragma once

#include "preview/browser_engine_qt.h"
#include "preview/page_bounds.h"

#include <QtCore/QElapsedTimer>
#include <QtWebEngineCore/QWebEnginePage>
#include <QtWebEngineCore/QWebEngineScript>

namespace kevra {

/// The script that follows the text runs there, where no page can reach it.
constexpr quint32 followingWorld = QWebEngineScript::UserWorld;

class Page : public QWebEnginePage {
    Q_OBJECT

public:
    Page(QWebEngineProfile *profile, const BrowserClient &client, EngineUse use);
    /// Its process ends first, whatever its scripts are doing.
    ~Page() override;

    /// Passed on as often as somebody can read it.
    void linkClicked(const QUrl &url);
    void tellEnded(); ///< once, that its process has

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage *createWindow(WebWindowType type) override;
    QStringList chooseFiles(
        FileSelectionMode mode, const QStringList &oldFiles, const QStringList &acceptedMimeTypes) override;
    void javaScriptAlert(const QUrl &origin, const QString &message) override;
    bool javaScriptConfirm(const QUrl &origin, const QString &message) override;
    bool javaScriptPrompt(
        const QUrl &origin, const QString &message, const QString &initial, QString *answer) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString &message, int line,
        const QString &source) override;

private:
    void refuseWhatNobodyAskedFor();
    void insertLinkScript();
    void insertFollowingScript();
    [[nodiscard]] bool mayShowDialog(const QString &message);
    void endProcess() const;

    NavigationGate &m_navigation;
    const RequestGate &m_requests;
    PageEvents &m_events;
    EngineUse m_use;
    QString m_linkMark; ///< how the link script's messages differ from the page's
    QString m_followingMark; ///< the same for the script that follows the text
    int m_dialogs = 0;
    int m_refused = 0; ///< navigations
    QElapsedTimer m_clock;
    RateLimit m_navigations{bounds::navigations};
    RateLimit m_links{bounds::links};
    RateLimit m_messages{bounds::messages}; ///< of the following script: no alerts may crowd them out
    RateLimit m_alerts{bounds::messages};
    bool m_ending = false;
};

} // namespace kevra
